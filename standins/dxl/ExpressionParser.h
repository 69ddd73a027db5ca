// Expressions, from assignment down to literals. Words side by side stay one flat chain, because only the
// types tell which of them are calls and which are concatenations.
#pragma once

#include "standins/dxl/TokenStream.h"

namespace kestrune::dxl {

class Library;

class ExpressionParser {
 public:
  ExpressionParser(TokenStream& tokens, const Library& library) : tokens_(tokens), library_(library) {}

  ExprPtr Parse();
  /// An expression without assignment at its top, as a for loop's range and an initial value have it.
  ExprPtr ParseConditional();

  /// The type that the token names, kNone for any other token.
  Type TypeAt(std::size_t ahead) const;
  /// Whether the word belongs to the language and can name nothing.
  static bool IsReserved(TextView word);

 private:
  ExprPtr ParseBinary(int loosest);
  ExprPtr ParsePrefix();
  ExprPtr ParseChain();
  bool AtElement() const;
  void ParseElement(std::vector<ExprPtr>& chain);
  void ParseArguments(std::vector<ExprPtr>& chain);
  ExprPtr ParsePrimary();
  ExprPtr ParseSizeof(Position at);
  ExprPtr ParseParen();
  ExprPtr ParsePostfix(ExprPtr expr);
  ExprPtr ParseSubscript(ExprPtr expr);
  ExprPtr ParseDot(ExprPtr expr);
  bool AtPostfix() const;

  TokenStream& tokens_;
  const Library& library_;
};

}  // namespace kestrune::dxl
