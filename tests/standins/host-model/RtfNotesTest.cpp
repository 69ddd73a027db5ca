#include "standins/host-model/RtfNotes.h"
#include "tests/standins/host-model/Support.h"

namespace kestrune::standins {
namespace {

TEST(RtfNotes, AreConverted) {
  const std::pair<Text, Text> cases[] = {
      {u"{\\rtf1\\ansi\\deff0 Hello world.\\par\r\n}", u"Hello world.\r\n"},
      {u"{\\rtf1 a\\line b\r\nc}", u"a\r\nbc"},
      {u"{\\rtf1 a \\b b\\b0  \\i c\\i0  \\ul d\\ul0  e}", u"a <b>b</b> <i>c</i> <u>d</u> e"},
      {u"{\\rtf1 a{\\b b}c}", u"a<b>b</b>c"},
      {u"{\\rtf1\\b a\\i b\\b0 c\\i0 d}", u"<b>a<i>b</i></b><i>c</i>d"},
      {u"{\\rtf1\\b a\\par b}", u"<b>a</b>\r\n<b>b</b>"},
      {u"{\\rtf1 \\{a\\}\\\\ 1 < 2 & 3 > 2}", u"{a}\\ 1 &lt; 2 &amp; 3 &gt; 2"},
      {u"{\\rtf1 \\'e4\\'B7 \\u8364?\\u-10179?\\u-8704?}", u"\u00E4\u00B7 \u20AC\U0001F600"},
      {u"{\\rtf1 {\\b a", u"<b>a</b>"},
  };
  for (const auto& [rtf, notes] : cases) EXPECT_EQ(NotesFromRtf(rtf), notes) << ToUtf8(rtf);
  const Text deep = u"{\\rtf1 " + Text(1'000'000, u'{') + u"a" + Text(1'000'000, u'}') + u"b}";
  EXPECT_EQ(NotesFromRtf(deep), u"ab");
}

TEST(RtfNotes, WhatIsNotSimulatedIsRefused) {
  for (const char16_t* rtf :
       {u"{\\rtf1{\\fonttbl{\\f0 Arial;}}a}", u"{\\rtf1{\\*\\pn}a}", u"{\\rtf1 \\'80}", u"{\\rtf1 \\'zz}",
        u"{\\rtf1 \\u99999?}", u"{\\rtf1 \\u8364 ab}", u"{\\rtf1 a\\"})
    EXPECT_THROW(NotesFromRtf(rtf), AutomationError) << ToUtf8(rtf);
}

TEST_F(ModelTest, TheRepositoryConvertsRtfOnly) {
  EXPECT_EQ(repository.Call(u"NotesFromFormat", {u"RTF", u"{\\rtf1 {\\b x}\\par}"}).ToText(),
            u"<b>x</b>\r\n");
}

}  // namespace
}  // namespace kestrune::standins
