// The operators of the base types, as a table. What handles can do is in the Library.
#pragma once

#include <span>

#include "standins/dxl/Value.h"

namespace kestrune::dxl {

/// Throws ScriptError, for a division by zero or a text that grows too long.
using BinaryFunction = Value (*)(const Value&, const Value&);
using UnaryFunction = Value (*)(const Value&);

struct BinaryOperator {
  TextView word;  // u".." is concatenation
  Type left;
  Type right;
  Type result;
  BinaryFunction run;
};

struct UnaryOperator {
  TextView word;
  Type operand;  // and result
  UnaryFunction run;
};

std::span<const BinaryOperator> BinaryOperators();
std::span<const UnaryOperator> UnaryOperators();

/// The longest text that a script may build, so that a runaway script fails before the machine does.
inline constexpr std::size_t kMaxTextLength = 1u << 26;

/// Appends, which is work for the run under way; throws ScriptError beyond kMaxTextLength.
void Append(Text& text, TextView more);

/// Whether the operator joins two texts.
bool JoinsTexts(BinaryFunction run);

/// A real as concatenation shows it: six decimals.
Text RealText(double real);

}  // namespace kestrune::dxl
