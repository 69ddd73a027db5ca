#include "standins/host-model/RtfNotes.h"
#include "tests/standins/host-model/Support.h"

namespace kestrune::standins {
namespace {

const std::pair<Text, Text> kCases[] = {
    {u"{\\rtf1\\ansi\\deff0 Hello world.\\par\r\n}", u"Hello world.\r\n"},
    {u"{\\rtf1 a\\line b\\par c\\\nd}", u"a\r\nb\r\nc\r\nd"},
    {u"{\\rtf1 a\r\nb}", u"ab"},
    {u"{\\rtf1\\f0\\fs20  a\\b0b}", u" ab"},
    {u"{\\rtf1 a \\b b\\b0  \\i c\\i0  \\ul d\\ulnone  e}", u"a <b>b</b> <i>c</i> <u>d</u> e"},
    {u"{\\rtf1 a{\\b b}c}", u"a<b>b</b>c"},
    {u"{\\rtf1\\b a\\i b\\i0 c\\b0 d}", u"<b>a<i>b</i>c</b>d"},
    {u"{\\rtf1\\b a\\i b\\b0 c\\i0 d}", u"<b>a<i>b</i></b><i>c</i>d"},
    {u"{\\rtf1\\b a\\par b\\plain c\\par}", u"<b>a</b>\r\n<b>b</b>c\r\n"},
    {u"{\\rtf1\\b\\b0 a}", u"a"},
    {u"{\\rtf1 \\{a\\}\\\\ b\\~c\\_d\\-e}", u"{a}\\ b\u00A0c\u2011de"},
    {u"{\\rtf1 1 < 2 & 3 > 2}", u"1 &lt; 2 &amp; 3 &gt; 2"},
    {u"{\\rtf1 \\'e4\\'80\\'93\\'B7}", u"\u00E4\u20AC\u201C\u00B7"},
    {u"{\\rtf1 \\'zz\\'}", u"zz"},
    {u"{\\rtf1 \\u8364?\\u-4065\\'3f x}", u"\u20AC\uF01F x"},
    {u"{\\rtf1 \\u-10179?\\u-8704?}", u"\U0001F600"},
    {u"{\\rtf1\\uc2 \\u8364EUx{\\uc0 \\u8364 y}\\u8364\\'80\\'80z}", u"\u20ACx\u20ACy\u20ACz"},
    {u"{\\rtf1\\uc3 {\\u8364 a}bcd}", u"\u20ACbcd"},
    {u"{\\rtf1\\uc2 \\u8364 {ab}}", u"\u20ACab"},
    {u"{\\rtf1 \\u8364\\par a}", u"\u20AC\r\na"},
    {u"{\\rtf1 a\\tab b\\emdash\\lquote c\\rquote\\bullet}", u"a\tb\u2014\u2018c\u2019\u2022"},
    {u"{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1;}{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}}"
     u"{\\*\\generator G \\par;}{\\pict\\wmetafile8 0102}a{\\b b}}",
     u"a<b>b</b>"},
    {u"{\\rtf1{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt}one\\par {\\pntext 2.\\tab}two\\par}",
     u"\u00B7\tone\r\n2.\ttwo\r\n"},
    {u"{\\rtf1 a{\\pict\\bin4 }}{}}b}", u"ab"},
    {u"{\\rtf1 a\\bin99999999999999999999 b}", u"a"},
    {u"{\\rtf1\\fs99999999999999999999\\b-0 a}", u"a"},
    {u"{\\rtf1 a}b{c}", u"a"},
    {u"{\\rtf1 {\\b a", u"<b>a</b>"},
    {u"{\\rtf1 a\\", u"a"},
};

TEST(RtfNotes, AreConverted) {
  for (const auto& [rtf, notes] : kCases) EXPECT_EQ(NotesFromRtf(rtf), notes) << ToUtf8(rtf);
}

TEST(RtfNotes, DepthIsNoDanger) {
  const Text deep(1'000'000, u'{');
  EXPECT_EQ(NotesFromRtf(deep + u"a"), u"a");
  EXPECT_EQ(NotesFromRtf(u"{\\rtf1 " + deep + u"a" + Text(1'000'000, u'}') + u"b}"), u"ab");
}

TEST_F(ModelTest, RtfIsConvertedByTheRepository) {
  EXPECT_EQ(repository.Call(u"NotesFromFormat", {u"RTF", u"{\\rtf1 {\\b x}\\par}"}).ToText(),
            u"<b>x</b>\r\n");
}

}  // namespace
}  // namespace kestrune::standins
