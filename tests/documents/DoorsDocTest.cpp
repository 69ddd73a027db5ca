#include "documents/DoorsDoc.h"
#include "documents/OutputTab.h"
#include "platform/Files.h"
#include "tests/support/TestHost.h"

namespace kestrune {
namespace {

using testing::TestHost;
using testing::TestPlatform;

/// The attributes that every export lists, then the module's own.
std::string Export(const std::string& objects, const std::vector<std::string>& own_attributes = {}) {
  std::vector<std::string> names = {"Absolute Number", "Object Identifier", "Object Number",
                                    "Object Level",    "Object Text",       "Object Short Text",
                                    "Created By",      "Created On",        "Last Modified On",
                                    "Object Heading",  "Object Parent",     "Object Text (Formatted)"};
  names.insert(names.end(), own_attributes.begin(), own_attributes.end());
  std::string xml = "<?xml version='1.0' encoding='UTF-8'?>\n<DoorsModule><Attributes>";
  for (std::size_t id = 0; id < names.size(); ++id)
    xml += "<Attribute Name=\"" + names[id] + "\" ID=\"" + std::to_string(id) + "\"/>";
  return xml + "</Attributes>" + objects + "</DoorsModule>";
}

struct DoorsDocTest : ::testing::Test, TestPlatform, TestHost {
  DoorsDocTest() {
    OutputTab(repository).Create();
    options.LoadDefault(Package());
    for (const TextView fixed : kFixedRules) doc.AddField(ColumnOf(*ParseRule(fixed)));
  }

  const DataTable& Load(const std::string& xml) {
    WriteFile(path, xml);
    doc.Load(path, options, platform, repository);
    return doc.GetData();
  }
  AutomationError LoadFailure(const std::string& xml) {
    try {
      Load(xml);
    } catch (const AutomationError& failure) {
      return failure;
    }
    ADD_FAILURE() << "this was read";
    return {0, u"", u""};
  }
  std::vector<Text> Output() const {
    std::vector<Text> lines;
    for (const auto& line : model.OutputLines(u"DOORS")) lines.push_back(line.line);
    return lines;
  }

  Text path = folder.File(u"DP1");
  Doors doors{platform};
  Options options{doors};
  DoorsDoc doc;
};

TEST_F(DoorsDocTest, ReadsObjectsIntoTheTable) {
  doc.AddField({.Attribute = u"Object Number", .Separator = u": ", .ExtraAttribute = u"Object Heading"});
  doc.AddField({.Attribute = u"Mood"});
  const DataTable& table = Load(Export(
      "<Objects>"
      "<Object><a0>1</a0><a1>R1</a1><a2>2.1</a2><a3>1</a3><a9>Scope</a9></Object>"
      "<Object><a0>2</a0><a1>R2</a1><a2>2.1.1</a2><a3>2</a3><a10>R1</a10><a12>two\nlines</a12></Object>"
      "<Object><a9>no number</a9></Object>"
      "</Objects>",
      {"Mood"}));
  ASSERT_EQ(table.UpperRow(), 3u);
  const Variant expected[4][7] = {{{}, {}, {}, {}, {}, {}, {}},
                                  {1, u"R1", u"1", {}, 10, u"2.1: Scope", {}},
                                  {2, u"R2", u"2", u"R1", 10, u"2.1.1", u"two\r\nlines"},
                                  {{}, {}, {}, {}, 20, u": no number", {}}};
  for (std::size_t row = 0; row < 4; ++row)
    for (std::size_t c = 0; c < 7; ++c) EXPECT_EQ(table.At(row, c), expected[row][c]) << row << ", " << c;
}

TEST_F(DoorsDocTest, TheAttributeListMayStandBehindTheObjects) {
  doc.AddField({.Attribute = u"Mood"});
  const DataTable& table = Load(
      "<DoorsModule><Objects><Object><a2>bad</a2><a1>good</a1><a0>R1</a0></Object></Objects>"
      "<Attributes><Attribute ID=\"0\" Name=\"Object Identifier\"/><Attribute ID=\"1\" Name=\"Mood\"/>"
      "<Attribute ID=\"2\" Name=\"Mood\"/></Attributes>"
      "<Attributes><Attribute ID=\"1\" Name=\"Object Identifier\"/></Attributes></DoorsModule>");
  ASSERT_EQ(table.UpperRow(), 1u);
  EXPECT_EQ(table.At(1, 1).ToText(), u"R1");
  EXPECT_EQ(table.At(1, 5).ToText(), u"good") << "the first list counts, and of two with one name the first";
}

TEST_F(DoorsDocTest, ControlCharactersAreCleanedAwayOnce) {
  const std::string value = std::string("R1\f") + '\0' + '\x1f';
  const std::string dirty = Export("<Objects><Object><a1>" + value + "</a1></Object></Objects>");
  EXPECT_EQ(Load(dirty).At(1, 1).ToText(), u"R1");
  const auto output = Output();
  ASSERT_EQ(output.size(), 3u);
  EXPECT_TRUE(output[0].starts_with(u"XML Error detected - " + path + u" - ")) << ToUtf8(output[0]);
  EXPECT_EQ(output[1], u"Attempting to post-process xml file...");
  EXPECT_EQ(output[2], u"Success.");
  EXPECT_EQ(ListFolder(folders.Temp()), std::vector<Text>{}) << "no text of the module lies about";
}

TEST_F(DoorsDocTest, WhatStaysMalformedIsReportedInSixLines) {
  // The tags that do not match stand in one line: parsers differ in which of the two they name.
  const auto failure = LoadFailure("<DoorsModule>\n<Attributes>\n<Attribute></Name></DoorsModule>");
  EXPECT_EQ(failure.Number, DoorsDoc::kBadExport);
  EXPECT_EQ(failure.Source, u"DoorsDoc.Load");
  const auto lines = Split(failure.Description, kCrLf);
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[0], u"Error Parsing XML Result");
  EXPECT_EQ(lines[1], u"File: " + folders.Temp() + u"plexadoors.tmp");
  EXPECT_EQ(lines[2], u"Line: 3");
  EXPECT_TRUE(lines[3].starts_with(u"Pos: ") && lines[4].starts_with(u"Abs: ") && lines[5].size() > 8);
  EXPECT_EQ(Output().size(), 3u);
}

TEST_F(DoorsDocTest, WhatIsNoExportChangesNothing) {
  options.AddMapping(u"Mood --> (Tagged Value)");
  const auto rules = options.Rules;
  for (const std::string& xml :
       {std::string("<html/>"), std::string("<DoorsModule/>"),
        std::string("<DoorsModule><Attributes/><Objects/></DoorsModule>"), Export("")}) {
    const auto failure = LoadFailure(xml);
    EXPECT_EQ(failure.Number, DoorsDoc::kBadExport) << xml;
    EXPECT_EQ(failure.Description, u"Can't read XML (" + path + u")") << xml;
    EXPECT_EQ(options.Rules, rules) << xml;
  }
  RemoveFile(path);
  EXPECT_THROW(doc.Load(path, options, platform, repository), AutomationError);
}

TEST_F(DoorsDocTest, TakesOverTheAttributeListAndLeavesTheSavingToOthers) {
  Load(Export("<Objects/>", {"Mood"}));
  EXPECT_NE(options.FindAttribute(u"Mood"), 0u);
  EXPECT_FALSE(Options(doors).Load(Package()));
}

TEST_F(DoorsDocTest, AValueOf100Megabytes) {
  doc.AddField({.Attribute = u"Object Text"});
  const std::size_t size = 100'000'000;
  const DataTable& table =
      Load(Export("<Objects><Object><a1>R1</a1><a4>" + std::string(size, 'x') + "</a4></Object></Objects>"));
  EXPECT_EQ(table.At(1, 5).AsText().size(), size);
}

}  // namespace
}  // namespace kestrune
