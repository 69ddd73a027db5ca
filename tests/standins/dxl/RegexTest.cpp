// What patterns match: the whole match and each group as "first-end", "x" for a group that took no
// part, "" for none.
#include <gtest/gtest.h>

#include "standins/dxl/Regex.h"

namespace kestrune::dxl {

namespace {

std::string Found(TextView pattern, TextView text) {
  std::string found;
  for (const Extent& extent : Regex(pattern).Search(text)) {
    if (!found.empty()) found += " ";
    found += extent.first < 0 ? "x" : std::to_string(extent.first) + "-" + std::to_string(extent.end);
  }
  return found;
}

TEST(Regex, FindsTheLeftmostMatch) {
  struct Row {
    TextView pattern;
    TextView text;
    std::string found;
  };
  const Row rows[] = {
      {u"b", u"abc", "1-2"},
      {u"", u"abc", "0-0"},
      {u"[^~]*", u"~x", "0-0"},
      {u"[^~]*", u"xy~", "0-2"},
      {u"x", u"", ""},
      {u"a*", u"baa", "0-0"},
      {u"a+", u"baa", "1-3"},
      {u"a.c", u"a\nc abc", "4-7"},
      {u"^b", u"ab\nb", "3-4"},
      {u"b$", u"bab\n", "2-3"},
      {u"^$", u"a\n\nb", "2-2"},
      {u"a|ab", u"ab", "0-1"},
      {u"(a|ab)(c|bcd)*$", u"abcd", "0-4 0-1 1-4"},
      {u"(a)|(b)", u"b", "0-1 x 0-1"},
      {u"(a*)*", u"aab", "0-2 0-2"},
      {u"(ab)+", u"ababa", "0-4 2-4"},
      {u"((a)(b))", u"ab", "0-2 0-2 0-1 1-2"},
      {u"[a-cx-]+", u"zb-x", "1-4"},
      {u"[^a-c]", u"abcd", "3-4"},
      {u"[\\]\\\\]+", u"a]\\b", "1-3"},
      {u"\\(\\.\\*", u"(.*", "0-3"},
      {u"\u00e4|\u20ac", u"1\u20ac", "1-2"},
  };
  for (const Row& row : rows) EXPECT_EQ(Found(row.pattern, row.text), row.found) << ToUtf8(row.pattern);
}

TEST(Regex, RefusesWhatItDoesNotKnow) {
  const Text nine_groups(u"(a)(a)(a)(a)(a)(a)(a)(a)(a)");
  const Text too_long(Regex::kMaxPatternLength + 1, u'a');
  for (const Text& pattern :
       {Text(u"a?"), Text(u"a{2}"), Text(u"\\d"), Text(u"(a"), Text(u"a)"), Text(u"[a"), Text(u"[]"),
        Text(u"*a"), Text(u"a**"), Text(u"[b-a]"), Text(u"a\\"), nine_groups + u"(a)", too_long})
    EXPECT_THROW(Regex{pattern}, ScriptError) << ToUtf8(pattern);
  EXPECT_NO_THROW(Regex{nine_groups});
}

}  // namespace

}  // namespace kestrune::dxl
