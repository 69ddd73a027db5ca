#include "standins/dxl/Numbers.h"

#include <charconv>

namespace kestrune::dxl {

namespace {

/// from_chars knows no leading plus.
template <typename Number>
std::optional<Number> ParseWhole(TextView text) {
  std::string digits = ToUtf8(text);
  if (digits.starts_with('+') && !digits.starts_with("+-")) digits.erase(0, 1);
  Number number{};
  const char* const end = digits.data() + digits.size();
  const auto [stop, problem] = std::from_chars(digits.data(), end, number);
  if (problem != std::errc() || stop != end) return std::nullopt;
  return number;
}

}  // namespace

std::optional<std::int32_t> ParseInt(TextView text) {
  return ParseWhole<std::int32_t>(text);
}
std::optional<double> ParseReal(TextView text) {
  return ParseWhole<double>(text);
}

}  // namespace kestrune::dxl
