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
  static std::vector<XmlGroup> ObjectsIn(const Text& file) {
    return XmlGroups::InFile(file, u"DoorsModule/Objects/Object");
  }
  static bool HasObjects(const Text& file) {
    return !XmlGroups::InFile(file, u"DoorsModule/Objects").empty();
  }

  /// The objects of the file: number, "<" and the parent where there is one.
  static std::string Objects(const Text& file) {
    std::string text;
    for (const XmlGroup& object : ObjectsIn(file)) {
      if (!text.empty()) text += ' ';
      text += ToUtf8(ValueOf(object, u"a0"));
      if (const Text parent = ValueOf(object, u"a10"); !parent.empty()) text += "<" + ToUtf8(parent);
    }
    return text;
  }

  static Text ValueOf(const XmlGroup& object, TextView name) {
    for (const XmlLeaf& value : object)
      if (value.name == name) return value.content;
    return {};
  }
};

TEST_F(ExportFile, ListsTheFixedAttributesAndThenTheModulesOwn) {
  const DoorsModule bare(database, u"Bare");
  const Text without_any = Export(bare.Path() + u"~0~~");
  EXPECT_EQ(AttributeNames(without_any), kFixedAttributes);
  EXPECT_TRUE(HasObjects(without_any));
  EXPECT_EQ(Objects(without_any), "");

  auto names = kFixedAttributes;
  names.insert(names.end(), {u"Status", u"Text with \"quotes\" & <signs>"});
  EXPECT_EQ(AttributeNames(Export(u"/P/M~0~~")), names);
  const Text attributes_only = Export(u"/P/M~1~~");
  EXPECT_EQ(AttributeNames(attributes_only), names);
  EXPECT_FALSE(HasObjects(attributes_only));
}

TEST_F(ExportFile, LeavesOutWhatIsDeletedOrUnreadableWhateverTheWindowShows) {
  const char* whole = "1 2<R1 5 6 7<R6 8<R7 9<R8";
  EXPECT_EQ(Objects(Export(u"/P/M~0~~")), whole);
  doors.UserOpens(u"/P/M", true, u"Open");
  EXPECT_EQ(Objects(Export(u"/P/M~0~~")), whole);
}

TEST_F(ExportFile, OfAViewHasItsObjectsAndWholeTables) {
  EXPECT_EQ(Objects(Export(u"/P/M~0~Open")), "1 5 7<R6 8<R7 9<R8");
  EXPECT_EQ(Objects(Export(u"/P/M~0~All")), "1 2<R1 5 6 7<R6 8<R7 9<R8");
  module.Set(1, u"Status", u"Closed");
  module.Set(2, u"Status", u"Open");
  doors.UserClosesAll();
  EXPECT_EQ(Objects(Export(u"/P/M~0~Open")), "2 5 7<R6 8<R7 9<R8") << "object 2 has lost its parent";
}

TEST_F(ExportFile, WritesTheValuesThatAnObjectHasAndNoOthers) {
  const std::string expected[] = {
      "a0=1 a1=R1 a2=1 a3=1 a9=Scope a12=Open",
      "a0=2 a1=R2 a2=1-0.1 a3=2 a10=R1 a12=Closed",
      "a0=5 a1=R5 a2=1-0.2.1 a3=3 a4=brace { and \\ a11=brace \\{ and \\\\ a12=Open",
      "a0=6 a1=R6 a2=0.1 a3=1",
  };
  const auto objects = ObjectsIn(Export(u"/P/M~0~~"));
  ASSERT_GE(objects.size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    std::string values;
    for (const XmlLeaf& value : objects[i])
      values += (values.empty() ? "" : " ") + ToUtf8(value.name) + "=" + ToUtf8(value.content);
    EXPECT_EQ(values, expected[i]);
  }
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

TEST_F(ExportFile, IsUtf8WithItsDeclarationInFront) {
  module.Set(6, u"Status", u"\u00E4 \U0001F600");
  const std::string bytes = ReadFile(Answer(dxl_script::kExportModule, u"/P/M~0~~"));
  EXPECT_TRUE(bytes.starts_with("<?xml version='1.0' encoding='UTF-8'?>") ||
              bytes.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"))
      << bytes.substr(0, 60);
  EXPECT_NE(bytes.find("<a12>\xC3\xA4 \xF0\x9F\x98\x80</a12>"), std::string::npos);
}

}  // namespace
}  // namespace kestrune
