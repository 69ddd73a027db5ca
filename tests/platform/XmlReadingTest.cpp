// Documents as they are handed on element by element; the same table for every parser.
#include "platform/Files.h"
#include "platform/Xml.h"
#include "tests/support/TestPlatform.h"

namespace kestrune {
namespace {

using testing::TempFolder;

/// Writes down what it is told. The content of elements whose name is in capitals is wanted.
class Listener : public XmlHandler {
 public:
  Text told;

  void OnDocument() override {
    told.clear();
    wanted_.clear();
  }
  bool OnStart(TextView name, const XmlAttributes& attributes) override {
    told.append(u"<").append(name);
    for (const auto& [attribute, value] : attributes) told += u" " + attribute + u"=" + value;
    told += u">";
    wanted_.push_back(AsciiUpper(name) == name);
    return wanted_.back();
  }
  void OnEnd(TextView content) override {
    EXPECT_TRUE(wanted_.back() || content.empty());
    wanted_.pop_back();
    told.append(content).append(u"/");
  }

 private:
  std::vector<bool> wanted_;
};

struct Readable {
  const char* what;
  Text xml;
  Text told;
};
const Readable kReadable[] = {
    {"elements and their contents", u"<d>\n <A>x</A>z<B/><C></C></d>", u"<d><A>x/<B>/<C>//"},
    {"all text below a wanted element", u"<d><A>x<b>y<c/></b>z</A></d>", u"<d><A>xyz//"},
    {"attributes", u"<d><a b='1' c=\"&lt;&amp;&quot;'&#10;\"/></d>", u"<d><a b=1 c=<&\"'\n>//"},
    {"entities", u"<A>&lt;&gt;&amp;&quot;&apos;&#65;&#x1F600;</A>", u"<A><>&\"'A\U0001F600/"},
    {"unparsed text", u"<A>x<![CDATA[<y>&amp;]]]]><![CDATA[>]]>z</A>", u"<A>x<y>&amp;]]>z/"},
    {"line ends", u"<A>1\r\n2\r3\n4&#xD;\r\n5&#13;6</A>", u"<A>1\n2\n3\n4\r\n5\r6/"},
    {"blanks", u"<A>  </A>", u"<A>  /"},
    {"blanks around a part", u"<A> <b> x </b>\n</A>", u"<A>  x \n/"},
    {"comments and instructions", u"<!--c--><?p i?><d><A>1<!--2-->3<?p 4?>5</A></d><!--e-->", u"<d><A>135//"},
    {"characters beyond the first plane", u"<A>\U0001F682\uFFFD</A>", u"<A>\U0001F682\uFFFD/"},
    {"name spaces", u"<x:d xmlns='u' xmlns:x='v'><A x:b='1'>2</A></x:d>", u"<d><A b=1>2//"},
    {"a declared encoding that a text has no more", u"<?xml version='1.0' encoding='ISO-8859-1'?><A>ö</A>",
     u"<A>ö/"},
};

TEST(XmlReading, HandsADocumentOnFrontToBack) {
  const TempFolder folder;
  for (const Readable& each : kReadable) {
    Listener listener;
    const auto error = ReadXmlText(each.xml, listener);
    EXPECT_FALSE(error) << each.what << ": " << ToUtf8(error->Reason);
    EXPECT_EQ(ToUtf8(listener.told), ToUtf8(each.told)) << each.what;
  }
}

std::string Utf16(TextView text, bool is_big_endian) {
  std::string bytes;
  for (const char16_t unit : u"\uFEFF" + Text(text)) {
    const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
    bytes += is_big_endian ? high : low;
    bytes += is_big_endian ? low : high;
  }
  return bytes;
}

TEST(XmlReading, ReadsFilesInTheirEncodings) {
  const TempFolder folder;
  const Text xml = u"<d><A>\u00F6\u20AC</A></d>", told = u"<d><A>\u00F6\u20AC//";
  const struct {
    const char* what;
    std::string bytes;
  } files[] = {
      {"UTF-8", ToUtf8(xml)},
      {"UTF-8 with a mark", "\xEF\xBB\xBF" + ToUtf8(xml)},
      {"UTF-16, little end first", Utf16(xml, false)},
      {"UTF-16, big end first", Utf16(xml, true)},
      {"a declared 8-bit one", "<?xml version='1.0' encoding='windows-1252'?><d><A>\xF6\x80</A></d>"},
  };
  for (const auto& each : files) {
    const Text path = folder.File(u"a.xml");
    WriteFile(path, each.bytes);
    Listener listener;
    const auto error = ReadXmlFile(path, listener);
    EXPECT_FALSE(error) << each.what << ": " << ToUtf8(error->Reason);
    EXPECT_EQ(ToUtf8(listener.told), ToUtf8(told)) << each.what;
  }
}

struct Unreadable {
  const char* what;
  Text xml;
};
const Unreadable kUnreadable[] = {
    {"nothing", u""},
    {"no XML", u"ERROR"},
    {"cut off in an element", u"<D><a>1</a>"},
    {"cut off in a name", u"<D><a"},
    {"tags that do not match", u"<D><a>x</b></D>"},
    {"two roots", u"<D/><D/>"},
    {"text behind the root", u"<D/>x"},
    {"a control character", u"<D>\f</D>"},
    {"a reference to one", u"<D>&#12;</D>"},
    {"a lone half of a pair by reference", u"<D>&#xD800;</D>"},
    {"an unknown entity", u"<D>&nbsp;</D>"},
    {"an attribute twice", u"<D a='1' a='2'/>"},
    {"an attribute without quotes", u"<D a=1/>"},
    {"the end of unparsed text", u"<D>]]></D>"},
    {"entities that expand without end",
     u"<!DOCTYPE D [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;\">]><D>&b;</D>"},
    {"an external entity", u"<!DOCTYPE D [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><D>&a;</D>"},
    {"a document type alone", u"<!DOCTYPE D><D/>"},
};

TEST(XmlReading, SaysWhyADocumentCannotBeRead) {
  const TempFolder folder;
  const Text path = folder.File(u"a.xml");
  for (const Unreadable& each : kUnreadable) {
    Listener listener;
    WriteFile(path, ToUtf8(each.xml));
    for (const auto& error : {ReadXmlText(each.xml, listener), ReadXmlFile(path, listener)}) {
      ASSERT_TRUE(error) << each.what << " has been read: " << ToUtf8(listener.told);
      EXPECT_NE(error->Code, 0) << each.what;
      EXPECT_FALSE(error->Reason.empty()) << each.what;
    }
  }
  const std::string with_nul("<D>a\0b</D>", 10);
  WriteFile(path, with_nul);
  Listener listener;
  EXPECT_TRUE(ReadXmlFile(path, listener)) << "a NUL";
  WriteFile(path, "<D>\xFF\xFE\xF6</D>");
  EXPECT_TRUE(ReadXmlFile(path, listener)) << "no UTF-8";
}

TEST(XmlReading, WhatIsCutOffAnywhereIsNoDocument) {
  const TempFolder folder;
  const Text path = folder.File(u"a.xml");
  const std::string whole =
      "<?xml version='1.0'?><!--c--><D a='1'>\n<D><D>1</D><D/></D> <b>\xC3\xB6&amp;<![CDATA[x]]></b></D>";
  Listener listener;
  for (std::size_t length = 0; length < whole.size(); ++length) {
    WriteFile(path, whole.substr(0, length));
    EXPECT_TRUE(ReadXmlFile(path, listener)) << whole.substr(0, length);
  }
}

TEST(XmlReading, WhatNeedsCareIsFoundWhereverItStands) {
  for (std::size_t before = 0; before < 80'000; before += 997) {
    const Text filling(before, u'x');
    Listener listener;
    ASSERT_FALSE(ReadXmlText(
        u"<d><b>" + filling + u"</b><A>1&#13;\n\u20AC&amp;</A><b>" + filling + u"</b></d>", listener));
    EXPECT_EQ(ToUtf8(listener.told), ToUtf8(u"<d><b>/<A>1\r\n\u20AC&/<b>//")) << before;
  }
}

TEST(XmlReading, SaysWhere) {
  Listener listener;
  const auto error = ReadXmlText(u"<D>\n  <a>x</b>\n</D>", listener);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Line, 2);
  EXPECT_GT(error->LinePosition, 1);
}

TEST(XmlReading, AMissingFileIsNoParseError) {
  const TempFolder folder;
  Listener listener;
  for (const Text& path : {folder.File(u"none.xml"), folder.Path(), Text()}) {
    const auto error = ReadXmlFile(path, listener);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Code, 0);
  }
}

TEST(XmlReading, AFailureOfTheHandlerEndsTheReading) {
  struct : Listener {
    void OnEnd(TextView) override {
      ++ended;
      throw AutomationError(error::kBase, u"Here", u"Enough");
    }
    int ended = 0;
  } handler;
  EXPECT_THROW(ReadXmlText(u"<d><a/><b/></d>", handler), AutomationError);
  EXPECT_EQ(handler.ended, 1);
}

TEST(XmlReading, NeitherLengthNorDepthHasALimit) {
  constexpr std::size_t kDepth = 5000, kLength = 20'000'000;
  Text xml = u"<d><A>" + Text(kLength, u'x') + u"</A>";
  for (std::size_t i = 0; i < kDepth; ++i) xml += u"<n>";
  xml += u"<A>y</A>";
  for (std::size_t i = 0; i < kDepth; ++i) xml += u"</n>";
  xml += u"</d>";
  Listener listener;
  const auto error = ReadXmlText(xml, listener);
  ASSERT_FALSE(error) << ToUtf8(error->Reason);
  EXPECT_EQ(listener.told.size(), 3 + 3 + kLength + 1 + kDepth * 4 + 5 + 1);
}

}  // namespace
}  // namespace kestrune
