#include "platform/Text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <utf8.h>

namespace kestrune {

namespace {

constexpr char16_t kReplacement = u'\uFFFD';
constexpr std::size_t kUtf8PerUnit = 3;   // bytes at most
constexpr std::size_t kExactDigits = 15;  // of a double

bool IsHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Looks at every unit, without a way out and without widening it: such a loop is one that the compiler turns
/// into vector code.
template <typename View>
bool IsAscii(View text) {
  using Unit = std::make_unsigned_t<typename View::value_type>;
  Unit seen = 0;
  for (const auto unit : text) seen = static_cast<Unit>(seen | static_cast<Unit>(unit));
  return seen < 0x80;
}

bool IsWellFormed(TextView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsLowSurrogate(text[i])) return false;
    if (!IsHighSurrogate(text[i])) continue;
    if (i + 1 == text.size() || !IsLowSurrogate(text[i + 1])) return false;
    ++i;
  }
  return true;
}

Text WithoutLoneSurrogates(TextView text) {
  Text mended(text);
  for (std::size_t i = 0; i < mended.size(); ++i) {
    const bool pair = IsHighSurrogate(mended[i]) && i + 1 < mended.size() && IsLowSurrogate(mended[i + 1]);
    if (pair)
      ++i;
    else if (IsHighSurrogate(mended[i]) || IsLowSurrogate(mended[i]))
      mended[i] = kReplacement;
  }
  return mended;
}

template <typename Convert>
Text Mapped(TextView text, Convert convert) {
  Text mapped(text);
  std::transform(mapped.begin(), mapped.end(), mapped.begin(), convert);
  return mapped;
}

}  // namespace

std::string ToUtf8(TextView text) {
  if (IsAscii(text)) return {text.begin(), text.end()};
  if (!IsWellFormed(text)) return ToUtf8(WithoutLoneSurrogates(text));
  std::string utf8(text.size() * kUtf8PerUnit, '\0');
  utf8.erase(utf8::unchecked::utf16to8(text.begin(), text.end(), utf8.begin()), utf8.end());
  return utf8;
}

std::size_t TakeUtf8(TextView& text, char* buffer, std::size_t size) {
  TextView piece = text.substr(0, size / kUtf8PerUnit);
  const bool ends_within_pair = piece.size() > 1 && IsHighSurrogate(piece.back());
  if (ends_within_pair) piece.remove_suffix(1);
  text.remove_prefix(piece.size());
  return ToUtf8(piece).copy(buffer, size);
}

Text FromUtf8(std::string_view utf8) {
  Text text;
  AppendUtf8(text, utf8);
  return text;
}

void AppendUtf8(Text& text, std::string_view utf8) {
  const std::size_t length = text.size();
  if (IsAscii(utf8)) {
    text.resize(length + utf8.size());
    std::copy(utf8.begin(), utf8.end(), text.begin() + static_cast<std::ptrdiff_t>(length));
  } else if (utf8::is_valid(utf8.begin(), utf8.end())) {
    text.resize(length + utf8.size());  // never more units than bytes
    const auto start = text.begin() + static_cast<std::ptrdiff_t>(length);
    text.erase(utf8::unchecked::utf8to16(utf8.begin(), utf8.end(), start), text.end());
  } else {
    std::string mended;
    utf8::replace_invalid(utf8.begin(), utf8.end(), std::back_inserter(mended));
    AppendUtf8(text, mended);
  }
}

Text ToText(long long number) {
  return FromUtf8(std::to_string(number));
}

TextView Trim(TextView text) {
  const auto is_blank = [](char16_t unit) { return unit <= u' '; };
  while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
  return text;
}

std::vector<Text> Split(TextView text, TextView separator) {
  std::vector<Text> pieces;
  for (;;) {
    const auto at = text.find(separator);
    pieces.emplace_back(text.substr(0, at));
    if (at == TextView::npos) return pieces;
    text.remove_prefix(at + separator.size());
  }
}

Text AsciiUpper(TextView text) {
  return Mapped(text, [](char16_t c) { return c >= u'a' && c <= u'z' ? char16_t(c - u'a' + u'A') : c; });
}

Text AsciiLower(TextView text) {
  return Mapped(text, [](char16_t c) { return c >= u'A' && c <= u'Z' ? char16_t(c - u'A' + u'a') : c; });
}

// Nearly no text has a line feed, and bytes are searched much faster than units: where no
// byte is one, no unit is.
bool HasLineFeed(TextView text) {
  return !text.empty() && std::memchr(text.data(), '\n', text.size() * sizeof(char16_t)) &&
         text.find(u'\n') != TextView::npos;
}

Text WidenLineFeeds(Text text) {
  if (!HasLineFeed(text)) return text;
  const auto is_bare = [&text](std::size_t i) {
    return text[i] == u'\n' && (i == 0 || text[i - 1] != u'\r');
  };
  std::size_t bare = 0;
  for (std::size_t i = 0; i < text.size(); ++i) bare += is_bare(i);
  if (bare == 0) return text;
  Text widened;
  widened.reserve(text.size() + bare);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (is_bare(i)) widened += u'\r';
    widened += text[i];
  }
  return widened;
}

double NumericValue(TextView text) {
  const auto is_digit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
  if (text.size() <= kExactDigits && std::all_of(text.begin(), text.end(), is_digit)) {  // as nearly always
    double number = 0;
    for (const char16_t digit : text) number = number * 10 + (digit - u'0');
    return number;
  }
  const std::string utf8 = ToUtf8(Trim(text).substr(0, 64));
  const auto end = utf8.find_first_not_of("+-.0123456789eE");
  return std::strtod(utf8.substr(0, end).c_str(), nullptr);
}

}  // namespace kestrune
