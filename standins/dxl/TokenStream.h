// The tokens under the parser's reading head, and the refusal of what the language does not have.
#pragma once

#include "standins/dxl/Ast.h"
#include "standins/dxl/Unsupported.h"

namespace kestrune::dxl {

class TokenStream {
 public:
  explicit TokenStream(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

  const Token& Peek(std::size_t ahead = 0) const {
    return tokens_[std::min(next_ + ahead, tokens_.size() - 1)];
  }
  const Token& Take() {
    const Token& token = Peek();
    if (next_ + 1 < tokens_.size()) ++next_;
    return token;
  }

  bool Is(TokenKind kind) const { return Peek().kind == kind; }
  bool IsSymbol(TextView text, std::size_t ahead = 0) const {
    return Peek(ahead).kind == TokenKind::kSymbol && Peek(ahead).text == text;
  }
  bool IsWord(TextView text, std::size_t ahead = 0) const {
    return Peek(ahead).kind == TokenKind::kName && Peek(ahead).text == text;
  }
  bool TakeSymbol(TextView text) { return IsSymbol(text) && (Take(), true); }
  bool TakeWord(TextView text) { return IsWord(text) && (Take(), true); }

  void ExpectSymbol(TextView text) {
    if (!TakeSymbol(text)) SyntaxError();
  }
  void ExpectWord(TextView text) {
    if (!TakeWord(text)) SyntaxError();
  }

  [[noreturn]] void SyntaxError() const {
    if (const auto what = UnsupportedAt(Peek(), Peek(1))) Refuse(*what);
    throw Problem{Peek().at, u"syntax error"};
  }
  [[noreturn]] void Refuse(TextView what) const { throw Problem{Peek().at, NotSupported(what)}; }

  /// Counts a level of nesting for as long as it lives.
  class Level {
   public:
    explicit Level(TokenStream& stream) : stream_(stream) {
      if (++stream_.nesting_ > kMaxNesting) throw Problem{stream_.Peek().at, u"nested too deeply"};
    }
    ~Level() { --stream_.nesting_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    TokenStream& stream_;
  };

 private:
  std::vector<Token> tokens_;
  std::size_t next_ = 0;
  int nesting_ = 0;
};

}  // namespace kestrune::dxl
