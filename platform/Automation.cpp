#include "platform/Automation.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace kestrune {

namespace {

[[noreturn]] void ThrowTypeMismatch(const char16_t* wanted) {
  throw AutomationError(error::kTypeMismatch, u"Kestrune", Text(u"Type mismatch: ") + wanted + u" expected");
}

Text DoubleText(double value) {
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return FromUtf8({buffer, static_cast<std::size_t>(end - buffer)});
}

double ParseNumber(const Text& text) {
  const std::string utf8 = ToUtf8(Trim(text));
  double value = 0;
  const auto [end, failure] = std::from_chars(utf8.data(), utf8.data() + utf8.size(), value);
  if (failure != std::errc() || end != utf8.data() + utf8.size()) ThrowTypeMismatch(u"a number");
  return value;
}

}  // namespace

AutomationError::AutomationError(std::uint32_t number, Text source, Text description)
    : runtime_error(ToUtf8(description)),
      Number(number),
      Source(std::move(source)),
      Description(std::move(description)) {}

Variant Object::Get(TextView member) const {
  return Invoke(Access::kGet, member, {});
}
Variant Object::Get(TextView member, Args args) const {
  return Invoke(Access::kGet, member, std::move(args));
}
void Object::Put(TextView member, Variant value) const {
  Invoke(Access::kPut, member, {std::move(value)});
}
Variant Object::Call(TextView member) const {
  return Invoke(Access::kCall, member, {});
}
Variant Object::Call(TextView member, Args args) const {
  return Invoke(Access::kCall, member, std::move(args));
}

Variant Object::Invoke(Access access, TextView member, Args args) const {
  if (!peer_) {
    throw AutomationError(error::kObjectMissing, u"Kestrune",
                          Text(u"Object not set: ").append(member) + u" is a member of nothing");
  }
  return peer_->Invoke(access, member, std::move(args));
}

bool Variant::ToBool() const {
  return ToDouble() != 0;
}

double Variant::ToDouble() const {
  if (IsEmpty()) return 0;
  if (IsBool()) return std::get<bool>(value_) ? -1 : 0;
  if (IsInt()) return std::get<std::int32_t>(value_);
  if (IsDouble()) return std::get<double>(value_);
  if (IsText()) return ParseNumber(AsText());
  ThrowTypeMismatch(u"a number");
}

std::int32_t Variant::ToInt() const {
  if (IsInt()) return std::get<std::int32_t>(value_);
  const double value = std::nearbyint(ToDouble());
  const bool fits =
      value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max();
  if (!fits) ThrowTypeMismatch(u"a 32-bit whole number");
  return static_cast<std::int32_t>(value);
}

Text Variant::ToText() const& {
  if (IsEmpty()) return {};
  if (IsText()) return AsText();
  if (IsBool()) return std::get<bool>(value_) ? u"True" : u"False";
  if (IsInt()) return kestrune::ToText(std::get<std::int32_t>(value_));
  if (IsDouble()) return DoubleText(std::get<double>(value_));
  ThrowTypeMismatch(u"a text");
}

Object Variant::ToObject() const {
  if (IsEmpty()) return {};
  if (IsObject()) return std::get<Object>(value_);
  ThrowTypeMismatch(u"an object");
}

std::vector<Text> Variant::ToTextArray() const {
  if (IsEmpty()) return {};
  if (IsTextArray()) return std::get<std::vector<Text>>(value_);
  ThrowTypeMismatch(u"an array of texts");
}

bool operator==(const Variant& a, const Variant& b) {
  if (a.IsEmpty() && b.IsEmpty()) return true;
  if (a.IsEmpty()) return b == a;
  if (b.IsEmpty()) return a.IsText() ? a.AsText().empty() : a.IsNumber() && a.ToDouble() == 0;
  if (a.IsText() && b.IsText()) return a.AsText() == b.AsText();
  return a.IsNumber() && b.IsNumber() && a.ToDouble() == b.ToDouble();
}

}  // namespace kestrune
