#include "platform/Xml.h"
#include "tests/support/TestPlatform.h"

namespace kestrune {
namespace {

using testing::TempFolder;

TEST(XmlTest, WhatIsBuiltAndSavedIsReadBack) {
  TempFolder folder;
  const Text value = u"<&> \"quoted\"\nnext ö \U0001F682 ";
  XmlDocument built;
  built.AppendRoot(u"Root").AppendElement(u"Child").SetContent(value);
  ASSERT_TRUE(built.Save(folder.File(u"a.xml")));
  XmlDocument read;
  ASSERT_TRUE(read.LoadFile(folder.File(u"a.xml")));
  EXPECT_EQ(read.SelectSingleNode(u"Root/Child").Content(), value);
  EXPECT_FALSE(read.SelectSingleNode(u"Root/Other"));
}

TEST(XmlTest, SelectsByUnionsAndPredicates) {
  XmlDocument document;
  ASSERT_TRUE(
      document.LoadText(u"<D><Row><Property>x</Property></Row><Row><PROPERTY>x</PROPERTY></Row><Row/></D>"));
  EXPECT_EQ(document.SelectNodes(u"//Row[Property = \"x\"] | //Row[PROPERTY = \"x\"]").size(), 2u);
  EXPECT_THROW(document.SelectNodes(u"//Row["), AutomationError);
}

TEST(XmlTest, ContentJoinsTextAndReferencesAndKeepsBlanks) {
  XmlDocument document;
  ASSERT_TRUE(document.LoadText(u"<D><a> x&amp;<![CDATA[<y>]]>&#xD;\r\nz </a><b/></D>"));
  const XmlNode a = document.SelectSingleNode(u"D/a");
  EXPECT_EQ(a.Content(), u" x&<y>\r\nz ");
  EXPECT_EQ(a.NextSibling().Content(), u"");
  EXPECT_EQ(a.NextSibling().Attribute(u"none"), std::nullopt);
}

TEST(XmlTest, TellsWhereAndWhyADocumentIsMalformed) {
  XmlDocument document;
  EXPECT_FALSE(document.LoadText(u"<D>\n  <a>x</b>\n</D>"));
  EXPECT_NE(document.ParseError().Code, 0);
  EXPECT_EQ(document.ParseError().Line, 2);
  EXPECT_GT(document.ParseError().LinePosition, 1);
  EXPECT_FALSE(document.ParseError().Reason.empty());
  EXPECT_FALSE(document.SelectSingleNode(u"D"));
}

TEST(XmlTest, RefusesWhatIsNoDocument) {
  const struct {
    const char* name;
    Text xml;
  } cases[] = {
      {"empty", u""},
      {"cut off", u"<D><a>1</a>"},
      {"control character", u"<D>\f</D>"},
      {"two roots", u"<D/><D/>"},
      {"unknown entity", u"<D>&nbsp;</D>"},
      {"entities that expand without end",
       u"<!DOCTYPE D [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;\">]><D>&b;</D>"},
      {"external entity", u"<!DOCTYPE D [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><D>&a;</D>"},
  };
  for (const auto& each : cases) {
    XmlDocument document;
    EXPECT_FALSE(document.LoadText(each.xml)) << each.name;
    EXPECT_NE(document.ParseError().Code, 0) << each.name;
  }
}

TEST(XmlTest, AMissingFileIsNoParseError) {
  TempFolder folder;
  XmlDocument document;
  EXPECT_FALSE(document.LoadFile(folder.File(u"none.xml")));
  EXPECT_FALSE(document.LoadFile(folder.Path()));
  EXPECT_EQ(document.ParseError().Code, 0);
}

TEST(XmlTest, ReadsValuesAndNestingBeyondTheParsersUsualLimits) {
  const std::size_t depth = KESTRUNE_XML_NESTING;  // as deep as the parser at hand can be made to read
  Text xml = u"<D><a>" + Text(20'000'000, u'x') + u"</a>";
  for (std::size_t i = 0; i < depth; ++i) xml += u"<n>";
  for (std::size_t i = 0; i < depth; ++i) xml += u"</n>";
  xml += u"</D>";
  XmlDocument document;
  ASSERT_TRUE(document.LoadText(xml)) << ToUtf8(document.ParseError().Reason);
  EXPECT_EQ(document.SelectSingleNode(u"D/a").Content().size(), 20'000'000u);
}

}  // namespace
}  // namespace kestrune
