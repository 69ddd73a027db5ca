#include <set>

#include "standins/doors-database/OutlineNumbers.h"
#include "tests/standins/doors-database/DoorsTestFiles.h"

namespace kestrune::standins {
namespace {

class LoadReqifTest : public DoorsDatabaseTest {
 protected:
  std::vector<LoadedModule> Load(TextView name) { return LoadReqif(database, ReqifFile(name), u"/P/Folder"); }
  std::vector<LoadedModule> LoadText(const std::string& xml, TextView project = u"/P") {
    WriteFile(folder.File(u"x.reqif"), xml);
    return LoadReqif(database, folder.File(u"x.reqif"), project);
  }
};

std::map<TablePart, int> CountParts(const ModuleContent& content) {
  std::map<TablePart, int> count;
  for (const DoorsObject& object : content.Objects()) ++count[object.part];
  return count;
}

TEST_F(LoadReqifTest, NativeExportKeepsNumbersTablesAndSystemAttributes) {
  const auto loaded = Load(u"doors-ch2-native.reqif");
  ASSERT_EQ(loaded.size(), 1u);
  EXPECT_EQ(loaded[0].path, u"/P/Folder/SUBSET-026_SRS _Ch-2_v330");
  EXPECT_EQ(loaded[0].objects, 286);
  EXPECT_EQ(loaded[0].added, 286);
  EXPECT_EQ(database.FindPath(loaded[0].path)->prefix, u"KIG_");

  const auto content = Content(loaded[0].path);
  EXPECT_EQ(
      CountParts(content),
      (std::map<TablePart, int>{
          {TablePart::kNone, 243}, {TablePart::kTable, 1}, {TablePart::kRow, 6}, {TablePart::kCell, 36}}));
  EXPECT_EQ(content.Objects().front().absolute_number, 287);
  const int second = content.ObjectAt(288);
  EXPECT_EQ(content.Value(second, content.AttributeAt(u"Object Heading")), u"2.1\tSujasumilazu Ejarusu");
  EXPECT_EQ(content.Value(second, content.AttributeAt(u"Created On")), u"23 January 2014");
  std::vector<Text> user_attributes;
  for (const auto& attribute : content.Attributes())
    if (attribute.on_object && !attribute.system) user_attributes.push_back(attribute.name);
  EXPECT_EQ(user_attributes, (std::vector<Text>{u"AlignStore", u"BorderStore", u"WidthStore"}));
}

TEST_F(LoadReqifTest, AnArchiveIsReadWithItsObjectsOfOtherPrograms) {
  const auto content = Content(Load(u"doors-ch5-1784.reqifz").at(0).path);
  EXPECT_EQ(
      CountParts(content),
      (std::map<TablePart, int>{
          {TablePart::kNone, 915}, {TablePart::kTable, 6}, {TablePart::kRow, 128}, {TablePart::kCell, 735}}));
  std::size_t longest = 0;
  int ole_objects = 0;
  const int text = content.AttributeAt(u"Object Text");
  for (int i = 0; i < 1784; ++i) {
    longest = std::max(longest, content.Value(i, text).size());
    ole_objects += content.Value(i, text) == u"OLE Object" ? 1 : 0;
  }
  EXPECT_EQ(ole_objects, 24);
  EXPECT_EQ(longest, 1234u + 7) << "characters and line breaks";
  EXPECT_EQ(content.RichValue(content.ObjectAt(65), text), u"{\\b I3}");
}

TEST_F(LoadReqifTest, DeletedObjectsAndAttributesOfOneNameAreKept) {
  const auto loaded = Load(u"doors-35attrs-anon.reqif");
  const auto content = Content(loaded[0].path);
  int deleted = 0;
  for (const DoorsObject& object : content.Objects()) deleted += object.deleted ? 1 : 0;
  EXPECT_EQ(content.Objects().size(), 43u);
  EXPECT_EQ(deleted, 15);
  std::set<Text> names;
  for (const auto& attribute : content.Attributes()) EXPECT_TRUE(names.insert(attribute.name).second);
  EXPECT_TRUE(names.contains(u"xxxxxxxxxx"));
  EXPECT_TRUE(names.contains(u"xxxxxxxxxx (2)"));
  EXPECT_FALSE(names.contains(u"ReqIF.ForeignDeleted"));
}

TEST_F(LoadReqifTest, AModuleHasValuesOfItsOwn) {
  Load(u"doors-two-modules-77.reqif");
  EXPECT_EQ(Ask("SELECT text FROM module_value v JOIN attribute a ON a.id = v.attribute WHERE a.name = "
                "'Created On'"),
            u"7 August 2024");
}

TEST_F(LoadReqifTest, WithoutNumbersInTheFileObjectsAreNumberedInTheirOrderAndNewOnesBehindThem) {
  const auto first = LoadReqif(database, ReqifFile(u"resync-a.reqif"));
  EXPECT_EQ(first[0].path, u"/ProR Versioning Support/Specification Document");
  const auto content = Content(first[0].path);
  EXPECT_EQ(content.Value(content.ObjectAt(2), content.AttributeAt(u"ID")), u"REQ-1");
  LoadReqif(database, ReqifFile(u"resync-b.reqif"));
  EXPECT_EQ(Ask("SELECT min(absolute_number) FROM object WHERE absolute_number > 42 AND NOT deleted"), u"43");
  EXPECT_EQ(Ask("SELECT count(*) FROM attribute WHERE name = 'Actors'"), u"2") << "not once for each module";
  EXPECT_EQ(LoadReqif(database, ReqifFile(u"resync-a.reqif"))[0].restored, 1);
}

constexpr const char* kTypes = R"xml(
  <DATATYPES>
    <DATATYPE-DEFINITION-STRING IDENTIFIER="t" LONG-NAME="Line"/><DATATYPE-DEFINITION-BOOLEAN IDENTIFIER="b"/>
    <DATATYPE-DEFINITION-ENUMERATION IDENTIFIER="e" LONG-NAME="Colour"><SPECIFIED-VALUES>
      <ENUM-VALUE IDENTIFIER="e1" LONG-NAME="Red"/><ENUM-VALUE IDENTIFIER="e2" LONG-NAME="Blue"/>
    </SPECIFIED-VALUES></DATATYPE-DEFINITION-ENUMERATION>
  </DATATYPES>
  <SPEC-TYPES>
    <SPEC-OBJECT-TYPE IDENTIFIER="T1"><SPEC-ATTRIBUTES>
      <ATTRIBUTE-DEFINITION-STRING IDENTIFIER="n" LONG-NAME="Note"><TYPE><X-REF>t</X-REF></TYPE></ATTRIBUTE-DEFINITION-STRING>
      <ATTRIBUTE-DEFINITION-INTEGER IDENTIFIER="id" LONG-NAME="ReqIF.ForeignID"/>
      <ATTRIBUTE-DEFINITION-ENUMERATION IDENTIFIER="c" LONG-NAME="Colours" MULTI-VALUED="true"><TYPE><X-REF>e</X-REF></TYPE>
        <DEFAULT-VALUE><ATTRIBUTE-VALUE-ENUMERATION><VALUES><ENUM-VALUE-REF>e2</ENUM-VALUE-REF></VALUES></ATTRIBUTE-VALUE-ENUMERATION></DEFAULT-VALUE>
      </ATTRIBUTE-DEFINITION-ENUMERATION>
      <ATTRIBUTE-DEFINITION-BOOLEAN IDENTIFIER="y" LONG-NAME="Yes"><TYPE><X-REF>b</X-REF></TYPE></ATTRIBUTE-DEFINITION-BOOLEAN>
      <ATTRIBUTE-DEFINITION-DATE IDENTIFIER="d" LONG-NAME="When"/>
    </SPEC-ATTRIBUTES></SPEC-OBJECT-TYPE>
    <SPEC-OBJECT-TYPE IDENTIFIER="T2"><SPEC-ATTRIBUTES>
      <ATTRIBUTE-DEFINITION-STRING IDENTIFIER="n2" LONG-NAME="Note"/>
      <ATTRIBUTE-DEFINITION-STRING IDENTIFIER="h" LONG-NAME="Object Heading"/>
    </SPEC-ATTRIBUTES></SPEC-OBJECT-TYPE>
    <SPEC-OBJECT-TYPE IDENTIFIER="T3"><SPEC-ATTRIBUTES>
      <ATTRIBUTE-DEFINITION-STRING IDENTIFIER="m1" LONG-NAME="More"/><ATTRIBUTE-DEFINITION-STRING IDENTIFIER="m2" LONG-NAME="More"/>
      <ATTRIBUTE-DEFINITION-STRING IDENTIFIER="m3" LONG-NAME="More (2)"/>
    </SPEC-ATTRIBUTES></SPEC-OBJECT-TYPE>
    <SPEC-OBJECT-TYPE IDENTIFIER="Unused"><SPEC-ATTRIBUTES>
      <ATTRIBUTE-DEFINITION-STRING IDENTIFIER="u" LONG-NAME="Unused"/>
    </SPEC-ATTRIBUTES></SPEC-OBJECT-TYPE>
  </SPEC-TYPES>)xml";

std::string Value(const std::string& kind, const std::string& definition, const std::string& value) {
  return "<ATTRIBUTE-VALUE-" + kind + " THE-VALUE=\"" + value + "\"><DEFINITION><REF>" + definition +
         "</REF></DEFINITION></ATTRIBUTE-VALUE-" + kind + ">";
}

std::string SpecObject(const std::string& id, const std::string& type, const std::string& values) {
  return "<SPEC-OBJECT IDENTIFIER='" + id + "'><VALUES>" + values + "</VALUES><TYPE><REF>" + type +
         "</REF></TYPE></SPEC-OBJECT>";
}

std::string Place(const std::string& object, const std::string& children = "") {
  return "<SPEC-HIERARCHY><OBJECT><REF>" + object + "</REF></OBJECT><CHILDREN>" + children +
         "</CHILDREN></SPEC-HIERARCHY>";
}

std::string DocumentWith(const std::string& objects, const std::string& specifications) {
  return std::string("<REQ-IF><CORE-CONTENT><REQ-IF-CONTENT>") + kTypes + "<SPEC-OBJECTS>" + objects +
         "</SPEC-OBJECTS><SPECIFICATIONS>" + specifications +
         "</SPECIFICATIONS></REQ-IF-CONTENT></CORE-CONTENT></REQ-IF>";
}

std::string Document(const std::string& objects, const std::string& places) {
  return DocumentWith(objects, "<SPECIFICATION IDENTIFIER='s' LONG-NAME='A/B'><CHILDREN>" + places +
                                   "</CHILDREN></SPECIFICATION>");
}

/// A line for each object: its number, "-" when it is deleted, "<" and its parent's number, its values.
std::string Show(const ModuleContent& content) {
  std::string lines;
  for (std::size_t i = 0; i < content.Objects().size(); ++i) {
    const DoorsObject& object = content.Objects()[i];
    lines += std::to_string(object.absolute_number) + (object.deleted ? "-" : "");
    if (object.parent >= 0)
      lines += "<" + std::to_string(content.Objects().at(object.parent).absolute_number);
    for (std::size_t a = 0; a < content.Attributes().size(); ++a) {
      const AttributeDefinition& attribute = content.Attributes()[a];
      const Text& value = content.Value(static_cast<int>(i), static_cast<int>(a));
      if (attribute.name != u"Absolute Number" && !value.empty())
        lines += "|" + ToUtf8(attribute.name + u"=" + value);
    }
    lines += "\n";
  }
  return lines;
}

TEST_F(LoadReqifTest, ValuesOfEveryKindReadAsDoorsShowsThem) {
  LoadText(Document(
      SpecObject(
          "o1", "T1",
          Value("STRING", "n", "one&#13;&#10;two") + Value("BOOLEAN", "y", "true") +
              Value("DATE", "d", "2024-02-29T13:05:09.000+01:00") + Value("INTEGER", "id", "70") +
              "<ATTRIBUTE-VALUE-ENUMERATION><VALUES><ENUM-VALUE-REF>e2</ENUM-VALUE-REF><ENUM-VALUE-REF>e1"
              "</ENUM-VALUE-REF></VALUES><DEFINITION><REF>c</REF></DEFINITION></"
              "ATTRIBUTE-VALUE-ENUMERATION>") +
          SpecObject("o2", "T2", Value("STRING", "n2", "merged") + Value("STRING", "h", "Heading")),
      Place("o1") + Place("o2")));
  const auto content = Content(u"/P/A-B");
  EXPECT_EQ(Show(content),
            "70|Note=one\r\ntwo|Colours=Blue\nRed|Yes=True|When=29 February 2024 13:05:09\n"
            "71|Object Heading=Heading|Note=merged\n")
      << "the default of Colours is for new objects";
  std::string definitions;
  for (const auto& attribute : content.Attributes())
    if (!attribute.system) definitions += ToUtf8(attribute.name + u":" + attribute.type + u" ");
  EXPECT_EQ(definitions, "Note:Line Colours:Colour Yes:Boolean When:Date ");
}

TEST_F(LoadReqifTest, ObjectsAreRecognisedAndNumbered) {
  const auto number = [](const char* n) { return Value("INTEGER", "id", n); };
  const std::string twice = Document(SpecObject("o", "T1", number("5")), Place("o", Place("o")));
  const struct {
    const char* what;
    std::vector<std::string> documents;  // loaded one after the other
    const char* objects;
  } cases[] = {
      {"by number when the identifier is new, without the value that the file no longer has",
       {Document(SpecObject("old", "T1",
                            number("70") + Value("STRING", "n", "before") + Value("BOOLEAN", "y", "true")),
                 Place("old")),
        Document(SpecObject("new", "T1", number("70") + Value("STRING", "n", "after")), Place("new"))},
       "70|Note=after\n"},
      {"an object at two places is two", {twice, twice}, "5\n6<5\n"},
      {"the lowest free numbers behind the last of all, whatever the file calls them",
       {Document(SpecObject("a", "T1", number("2147483647")) + SpecObject("a#2", "T1", number("1")) +
                     SpecObject("b", "T1", ""),
                 Place("a") + Place("a") + Place("a#2") + Place("b")),
        Document(SpecObject("a", "T1", "") + SpecObject("c", "T1", number("99999999999")),
                 Place("a") + Place("c"))},
       "2147483647\n2-\n4\n1-\n3-\n"},
      {"attributes of one name keep their values",
       {Document(SpecObject("o", "T3",
                            Value("STRING", "m1", "one") + Value("STRING", "m2", "two") +
                                Value("STRING", "m3", "three")),
                 Place("o"))},
       "1|More=one|More (3)=two|More (2)=three\n"},
  };
  for (const auto& each : cases) {
    const Text project = u"/Project " + ToText(&each - cases);
    for (const std::string& document : each.documents) LoadText(document, project);
    EXPECT_EQ(Show(Content(project + u"/A-B")), each.objects) << each.what;
  }
}

TEST_F(LoadReqifTest, DocumentsGetNamesThatPathsCanHave) {
  std::string specifications;
  for (const char* name : {"", "A/B", "A-B (2)", "A-B", ""})
    specifications += std::string("<SPECIFICATION IDENTIFIER='' LONG-NAME='").append(name).append("'/>");
  std::string paths;
  for (const LoadedModule& module : LoadText(DocumentWith("", specifications)))
    paths += ToUtf8(module.path) + "|";
  EXPECT_EQ(paths, "/P/Unnamed|/P/A-B|/P/A-B (2)|/P/A-B (3)|/P/Unnamed (2)|");
}

TEST_F(LoadReqifTest, AnEntryWithoutItsObjectIsLeftOutWithAWarning) {
  const auto loaded =
      LoadText(Document(SpecObject("a", "T1", "") + SpecObject("b", "T1", "") + SpecObject("c", "T1", ""),
                        Place("a", "\n" + Place("lost", Place("b", Place("c")))) + Place("gone")));
  EXPECT_EQ(Show(Content(u"/P/A-B")), "1\n2<1\n3<2\n") << "what lay below it lies below the one above it";
  ASSERT_EQ(loaded[0].warnings.size(), 2u);
  const Text line = ToText(static_cast<long long>(std::ranges::count(std::string_view(kTypes), '\n')) + 2);
  EXPECT_EQ(
      loaded[0].warnings[0],
      folder.File(u"x.reqif") + u"(" + line +
          u"): the hierarchy refers to the object \"lost\", which the file does not hold; it is left out");
}

/// Square time would show as minutes.
TEST_F(LoadReqifTest, LargeFilesTakeTimeInProportion) {
  constexpr int kMany = 20000;
  std::string specifications, attributes;
  for (int i = 0; i < kMany; ++i) {
    specifications += "<SPECIFICATION IDENTIFIER='' LONG-NAME='A'/>";
    attributes += "<ATTRIBUTE-DEFINITION-STRING IDENTIFIER='x" + std::to_string(i) + "' LONG-NAME='X'/>";
  }
  std::string xml = DocumentWith("", specifications);
  EXPECT_EQ(LoadText(xml).size(), std::size_t{kMany});
  xml = Document(SpecObject("o", "T3", Value("STRING", "x7", std::string(1'000'000, ' ') + "x")), Place("o"));
  xml.replace(xml.find("<ATTRIBUTE-DEFINITION-STRING IDENTIFIER=\"m1\""), 0, attributes);
  LoadText(xml);
  EXPECT_EQ(Ask("SELECT count(*) FROM attribute WHERE name LIKE 'X%'"), ToText(kMany));
}

TEST_F(LoadReqifTest, HierarchyMayBeHoweverDeep) {
  constexpr int kDepth = 40'000;
  std::string objects, open, close;
  for (int i = 0; i < kDepth; ++i) {
    objects += SpecObject("o" + std::to_string(i), "T1", "");
    open += "<SPEC-HIERARCHY><OBJECT><REF>o" + std::to_string(i) + "</REF></OBJECT><CHILDREN>";
    close += "</CHILDREN></SPEC-HIERARCHY>";
  }
  LoadText(Document(objects, open + close));
  const auto content = Content(u"/P/A-B");
  EXPECT_EQ(content.Objects().back().level, kDepth);
  const OutlineNumbers numbers(content, false);
  EXPECT_EQ(numbers.At(1), u"0.1.1");
  EXPECT_EQ(numbers.At(kDepth - 1).size(), 2u * kDepth + 1) << "all of them would fill the memory";
}

}  // namespace
}  // namespace kestrune::standins
