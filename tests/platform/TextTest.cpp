#include <gtest/gtest.h>

#include "platform/Text.h"

namespace kestrune {
namespace {

TEST(TextTest, Utf8RoundTripsAndMendsWhatIsNoText) {
  const struct {
    std::string utf8;
    Text text;
  } sound[] = {{"", u""},
               {"plain", u"plain"},
               {"gr\xC3\xB6\xC3\x9F"
                "er",
                u"größer"},
               {"\xF0\x9F\x9A\x82!", u"\U0001F682!"}};
  for (const auto& each : sound) {
    EXPECT_EQ(FromUtf8(each.utf8), each.text);
    EXPECT_EQ(ToUtf8(each.text), each.utf8);
  }
  EXPECT_EQ(FromUtf8("a\xFFz"), u"a\uFFFDz");
  EXPECT_EQ(FromUtf8("\xC3"), u"\uFFFD");
  const Text lone_high{u'a', char16_t(0xD83D), u'z'};
  const Text lone_low{char16_t(0xDE82)};
  EXPECT_EQ(ToUtf8(lone_high), "a\xEF\xBF\xBDz");
  EXPECT_EQ(ToUtf8(lone_low), "\xEF\xBF\xBD");
}

TEST(TextTest, WidenLineFeedsLeavesWholeLineEndsAlone) {
  const struct {
    Text narrow;
    Text wide;
  } cases[] = {{u"", u""},
               {u"one", u"one"},
               {u"a\nb", u"a\r\nb"},
               {u"a\r\nb", u"a\r\nb"},
               {u"\n\n", u"\r\n\r\n"},
               {u"a\rb\n\r\n", u"a\rb\r\n\r\n"}};
  for (const auto& each : cases) EXPECT_EQ(WidenLineFeeds(each.narrow), each.wide) << ToUtf8(each.narrow);
  EXPECT_FALSE(HasLineFeed(TextView())) << "where nothing is, nothing is looked at";
}

TEST(TextTest, SplitKeepsEmptyPieces) {
  EXPECT_EQ(Split(u"", u"\n"), std::vector<Text>{u""});
  EXPECT_EQ(Split(u"a\r\n\r\nb\r\n", kCrLf), (std::vector<Text>{u"a", u"", u"b", u""}));
}

TEST(TextTest, NumericValueReadsWhatTheTextBeginsWith) {
  const struct {
    Text text;
    double value;
  } cases[] = {{u"17", 17}, {u"  -3.5 mm", -3.5}, {u"", 0}, {u"REQ7", 0}, {u"0x10", 0}, {u"1e3", 1000}};
  for (const auto& each : cases) EXPECT_EQ(NumericValue(each.text), each.value) << ToUtf8(each.text);
}

}  // namespace
}  // namespace kestrune
