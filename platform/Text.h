// Text is UTF-16 from end to end, as the host and DOORS hand it over; it becomes UTF-8 only at files and
// terminals. Lengths and orderings count UTF-16 units.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrune {

using Text = std::u16string;
using TextView = std::u16string_view;

inline constexpr TextView kCrLf = u"\r\n";

/// Lets texts be looked up by a view.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(TextView text) const { return std::hash<TextView>{}(text); }
};

/// UTF-8 of `text`; a lone surrogate becomes U+FFFD.
std::string ToUtf8(TextView text);
/// Puts UTF-8 of what `text` begins with into `buffer`, of `size` bytes, and takes that off `text`; answers how many
/// bytes. For texts so large that a second copy would be felt.
std::size_t TakeUtf8(TextView& text, char* buffer, std::size_t size);

/// UTF-16 of `utf8`; every invalid byte sequence becomes U+FFFD.
Text FromUtf8(std::string_view utf8);
/// Puts the same behind `text`.
void AppendUtf8(Text& text, std::string_view utf8);

/// The decimal form of a whole number.
Text ToText(long long number);

/// `text` without the blanks and control characters (up to U+0020) at its ends.
TextView Trim(TextView text);

/// The pieces between the occurrences of `separator`; one piece, maybe empty, when there is none.
std::vector<Text> Split(TextView text, TextView separator);

/// Upper or lower case of the ASCII letters; every other character stays. For names
/// of columns, files, options.
Text AsciiUpper(TextView text);
Text AsciiLower(TextView text);

bool HasLineFeed(TextView text);
/// Line ends as they are stored and shown: every line feed not yet preceded by a carriage return gets one.
Text WidenLineFeeds(Text text);

/// The number that `text` begins with, blanks skipped, 0 when it begins with none: "12 mm" is 12, "x" is 0.
double NumericValue(TextView text);

}  // namespace kestrune
