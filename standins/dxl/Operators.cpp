#include "standins/dxl/Operators.h"

#include <cstdio>
#include <functional>

#include "standins/dxl/Error.h"

namespace kestrune::dxl {

namespace {

/// Ints wrap around at 32 bits.
Value Wrapped(long long number) {
  return Value(
      static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<unsigned long long>(number))));
}

long long Wide(const Value& value) {
  return value.AsInt();
}

template <typename Operation>
Value OnInts(const Value& a, const Value& b) {
  return Wrapped(Operation()(Wide(a), Wide(b)));
}

template <typename Operation>
Value OnIntsNotByZero(const Value& a, const Value& b) {
  if (b.AsInt() == 0) throw ScriptError(u"division by zero");
  return OnInts<Operation>(a, b);
}

template <typename Operation>
Value OnReals(const Value& a, const Value& b) {
  return Value(Operation()(a.AsReal(), b.AsReal()));
}

Value DivideReals(const Value& a, const Value& b) {
  if (b.AsReal() == 0) throw ScriptError(u"division by zero");
  return Value(a.AsReal() / b.AsReal());
}

template <auto Get, typename Comparison>
Value Compared(const Value& a, const Value& b) {
  return Value(Comparison()((a.*Get)(), (b.*Get)()));
}

template <typename Comparison>
Value ComparedTexts(const Value& a, const Value& b) {
  if (Budget* const budget = Budget::Current())
    budget->SpendOn(std::min(a.AsText().size(), b.AsText().size()));
  return Value(Comparison()(a.AsText(), b.AsText()));
}

TextView AsTextOf(const Value& value) {
  return value.AsText();
}
Text AsTextOfInt(const Value& value) {
  return ToText(value.AsInt());
}
Text AsTextOfReal(const Value& value) {
  return RealText(value.AsReal());
}
Text AsTextOfChar(const Value& value) {
  return Text(1, value.AsChar());
}
TextView AsTextOfBool(const Value& value) {
  return value.AsBool() ? u"true" : u"false";
}

template <auto AsText>
Value Concatenated(const Value& a, const Value& b) {
  const auto& head = AsText(a);
  const std::size_t size = head.size() + b.AsText().size();
  if (size > kMaxTextLength) throw ScriptError(u"text too long");
  if (Budget* const budget = Budget::Current()) budget->Foresee(size * sizeof(char16_t));
  Text text;
  text.reserve(size);
  text.append(head).append(b.AsText());
  return Value(std::move(text));
}

constexpr auto kBoolOf = &Value::AsBool;
constexpr auto kCharOf = &Value::AsChar;
constexpr auto kIntOf = &Value::AsInt;
constexpr auto kRealOf = &Value::AsReal;

constexpr BinaryOperator kBinary[] = {
    {u"..", kString, kString, kString, Concatenated<AsTextOf>},
    {u"..", kInt, kString, kString, Concatenated<AsTextOfInt>},
    {u"..", kReal, kString, kString, Concatenated<AsTextOfReal>},
    {u"..", kChar, kString, kString, Concatenated<AsTextOfChar>},
    {u"..", kBool, kString, kString, Concatenated<AsTextOfBool>},
    {u"+", kInt, kInt, kInt, OnInts<std::plus<>>},
    {u"-", kInt, kInt, kInt, OnInts<std::minus<>>},
    {u"*", kInt, kInt, kInt, OnInts<std::multiplies<>>},
    {u"/", kInt, kInt, kInt, OnIntsNotByZero<std::divides<>>},
    {u"%", kInt, kInt, kInt, OnIntsNotByZero<std::modulus<>>},
    {u"&", kInt, kInt, kInt, OnInts<std::bit_and<>>},
    {u"|", kInt, kInt, kInt, OnInts<std::bit_or<>>},
    {u"^", kInt, kInt, kInt, OnInts<std::bit_xor<>>},
    {u"+", kReal, kReal, kReal, OnReals<std::plus<>>},
    {u"-", kReal, kReal, kReal, OnReals<std::minus<>>},
    {u"*", kReal, kReal, kReal, OnReals<std::multiplies<>>},
    {u"/", kReal, kReal, kReal, DivideReals},
    {u"==", kInt, kInt, kBool, Compared<kIntOf, std::equal_to<>>},
    {u"!=", kInt, kInt, kBool, Compared<kIntOf, std::not_equal_to<>>},
    {u"<", kInt, kInt, kBool, Compared<kIntOf, std::less<>>},
    {u">", kInt, kInt, kBool, Compared<kIntOf, std::greater<>>},
    {u"<=", kInt, kInt, kBool, Compared<kIntOf, std::less_equal<>>},
    {u">=", kInt, kInt, kBool, Compared<kIntOf, std::greater_equal<>>},
    {u"==", kReal, kReal, kBool, Compared<kRealOf, std::equal_to<>>},
    {u"!=", kReal, kReal, kBool, Compared<kRealOf, std::not_equal_to<>>},
    {u"<", kReal, kReal, kBool, Compared<kRealOf, std::less<>>},
    {u">", kReal, kReal, kBool, Compared<kRealOf, std::greater<>>},
    {u"<=", kReal, kReal, kBool, Compared<kRealOf, std::less_equal<>>},
    {u">=", kReal, kReal, kBool, Compared<kRealOf, std::greater_equal<>>},
    {u"==", kChar, kChar, kBool, Compared<kCharOf, std::equal_to<>>},
    {u"!=", kChar, kChar, kBool, Compared<kCharOf, std::not_equal_to<>>},
    {u"<", kChar, kChar, kBool, Compared<kCharOf, std::less<>>},
    {u">", kChar, kChar, kBool, Compared<kCharOf, std::greater<>>},
    {u"<=", kChar, kChar, kBool, Compared<kCharOf, std::less_equal<>>},
    {u">=", kChar, kChar, kBool, Compared<kCharOf, std::greater_equal<>>},
    {u"==", kString, kString, kBool, ComparedTexts<std::equal_to<>>},
    {u"!=", kString, kString, kBool, ComparedTexts<std::not_equal_to<>>},
    {u"<", kString, kString, kBool, ComparedTexts<std::less<>>},
    {u">", kString, kString, kBool, ComparedTexts<std::greater<>>},
    {u"<=", kString, kString, kBool, ComparedTexts<std::less_equal<>>},
    {u">=", kString, kString, kBool, ComparedTexts<std::greater_equal<>>},
    {u"==", kBool, kBool, kBool, Compared<kBoolOf, std::equal_to<>>},
    {u"!=", kBool, kBool, kBool, Compared<kBoolOf, std::not_equal_to<>>},
};

constexpr UnaryOperator kUnary[] = {
    {u"!", kBool, [](const Value& value) { return Value(!value.AsBool()); }},
    {u"-", kInt, [](const Value& value) { return Wrapped(-Wide(value)); }},
    {u"~", kInt, [](const Value& value) { return Wrapped(~Wide(value)); }},
    {u"+", kInt, [](const Value& value) { return value; }},
    {u"-", kReal, [](const Value& value) { return Value(-value.AsReal()); }},
    {u"+", kReal, [](const Value& value) { return value; }},
};

}  // namespace

std::span<const BinaryOperator> BinaryOperators() {
  return kBinary;
}
std::span<const UnaryOperator> UnaryOperators() {
  return kUnary;
}

bool JoinsTexts(BinaryFunction run) {
  return run == &Concatenated<AsTextOf>;
}

void Append(Text& text, TextView more) {
  if (more.size() > kMaxTextLength - text.size()) throw ScriptError(u"text too long");
  if (Budget* const budget = Budget::Current()) {
    const std::size_t size = text.size() + more.size();
    if (size > text.capacity()) budget->Foresee(2 * size * sizeof(char16_t));
    budget->SpendOn(more.size());
  }
  text += more;
}

Text RealText(double real) {
  char text[400];  // the largest double has 309 digits before its point
  std::snprintf(text, sizeof text, "%f", real);
  return FromUtf8(text);
}

}  // namespace kestrune::dxl
