// The file that the export script writes.
#include "tests/support/XmlGroups.h"
#include "tests/workbench/ScriptBench.h"

namespace kestrune {
namespace {

using testing::DoorsModule;
using testing::ScriptBench;
using testing::XmlGroup;
using testing::XmlGroups;
using testing::XmlLeaf;

const std::vector<Text> kFixedAttributes = {
    u"Absolute Number",  u"Object Identifier", u"Object Number", u"Object Level",
    u"Object Text",      u"Object Short Text", u"Created By",    u"Created On",
    u"Last Modified On", u"Object Heading",    u"Object Parent", u"Object Text (Formatted)"};

class ExportFile : public ScriptBench {
 protected:
  Text Export(const Text& parameter) { return Answer(dxl_script::kExportModule, parameter); }

  static std::vector<Text> AttributeNames(const Text& file) {
    std::vector<Text> names;
    const auto lists = XmlGroups::InFile(file, u"DoorsModule/Attributes");
    for (const XmlLeaf& attribute : lists.at(0)) {
      const XmlAttributes expected = {{u"Name", attribute.attributes.at(0).second},
                                      {u"ID", ToText(static_cast<long long>(names.size()))}};
      EXPECT_EQ(attribute.attributes, expected);
      names.push_back(expected[0].second);
    }
    return names;
  }
  /// Each object with its values, by the names of their elements.
  static std::vector<std::string> ObjectsIn(const Text& file) {
    std::vector<std::string> objects;
    for (const XmlGroup& object : XmlGroups::InFile(file, u"DoorsModule/Objects/Object")) {
      std::string& values = objects.emplace_back();
      for (const XmlLeaf& value : object)
        values += (values.empty() ? "" : " ") + ToUtf8(value.name) + "=" + ToUtf8(value.content);
    }
    return objects;
  }
  static bool HasObjects(const Text& file) {
    return !XmlGroups::InFile(file, u"DoorsModule/Objects").empty();
  }
};

TEST_F(ExportFile, ListsTheFixedAttributesAndThenTheModulesOwn) {
  const DoorsModule bare(database, u"Bare");
  const Text without_any = Export(bare.Path() + u"~0~~");
  EXPECT_EQ(AttributeNames(without_any), kFixedAttributes);
  EXPECT_TRUE(HasObjects(without_any));
  EXPECT_TRUE(ObjectsIn(without_any).empty());

  auto names = kFixedAttributes;
  names.insert(names.end(), {u"Status", u"Text with \"quotes\" & <signs>"});
  EXPECT_EQ(AttributeNames(Export(u"/P/M~0~~")), names);
  const Text attributes_only = Export(u"/P/M~1~~");
  EXPECT_EQ(AttributeNames(attributes_only), names);
  EXPECT_FALSE(HasObjects(attributes_only));
}

TEST_F(ExportFile, HasTheValuesOfAllThatIsThereAndReadableWhateverTheWindowShows) {
  const std::vector<std::string> expected = {
      "a0=1 a1=R1 a2=1 a3=1 a9=Scope a12=Open",
      "a0=2 a1=R2 a2=1-0.1 a3=2 a10=R1 a12=Closed",
      "a0=5 a1=R5 a2=1-0.2.1 a3=3 a4=brace { and \\ a11=brace \\{ and \\\\ a12=Open",
      "a0=6 a1=R6 a2=0.1 a3=1 a12=\u00E4 \U0001F600",
      "a0=7 a1=R7 a2=0.1.1 a3=2 a10=R6",
      "a0=8 a1=R8 a2=0.1.1.1 a3=3 a10=R7",
      "a0=9 a1=R9 a2=0.1.1.1.1 a3=4 a10=R8 a12=Open",
  };
  module.Set(6, u"Status", u"\u00E4 \U0001F600");
  EXPECT_EQ(ObjectsIn(Export(u"/P/M~0~~")), expected);
  doors.UserOpens(u"/P/M", true, u"Open");
  EXPECT_EQ(ObjectsIn(Export(u"/P/M~0~~")), expected);
}

/// DOORS keeps every text that a script makes. An object costs its own values: identifier, numbers, texts;
/// its level, its parent's identifier and the names of attributes and elements are there already.
TEST_F(ExportFile, MakesNoTextsBeyondTheValues) {
  DoorsModule large(database, u"Large");
  large.AddAttribute(u"Status");
  const auto texts_made = [&] {
    Answer(dxl_script::kExportModule, u"/P/Large~0~~");
    return doors.Cost().strings;
  };
  large.AddObject(1, 0, 1);
  large.AddObject(2, 1, 1);
  large.Set(2, u"Status", u"Open");
  const auto few = texts_made();
  for (int i = 3; i < 103; ++i) {
    large.AddObject(i, 1, i);
    large.Set(i, u"Status", u"Open");
  }
  EXPECT_EQ((texts_made() - few) / 100.0, 4.0) << "absolute number, identifier, number, Status";
}

}  // namespace
}  // namespace kestrune
