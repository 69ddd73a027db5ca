// The pieces a script consists of.
#pragma once

#include "standins/dxl/Error.h"
#include "standins/dxl/Value.h"

namespace kestrune::dxl {

enum class TokenKind { kEnd, kNewline, kName, kLiteral, kSymbol };

struct Token {
  TokenKind kind = TokenKind::kEnd;
  Position at;
  Text text;                   // of a name or a symbol
  Value literal;               // of a literal
  bool after_comment = false;  // of a newline: a // comment stands before it
};

/// Thrown inside the compiler where it cannot go on; Compile turns it into an Error.
struct Problem {
  Position at;
  Text message;
};

}  // namespace kestrune::dxl
