#include "tests/import/ImportTest.h"

namespace kestrune {
namespace {

using testing::ImportFixture;

using testing::Exported;
using testing::ExportedObject;

struct SynchronisationTest : ImportFixture {
  SynchronisationTest() { StoreRules({u"Object Heading --> Name", u"Mood --> (Tagged Value)"}); }
  Text MoodOf(const Text& identifier) const {
    const auto mood = ElementOf(identifier).TaggedValues().Find(u"Mood");
    return mood ? mood.Value() : u"(none)";
  }
};

TEST_F(SynchronisationTest, ParentAndChildMayChangePlaces) {
  application->objects = {Exported(u"A"), Exported(u"B", u"A"), Exported(u"C", u"B")};
  Import();
  EXPECT_EQ(Tree(), "[A] nA\n  [B] nB\n    [C] nC\nTrash Can\n");
  application->objects = {Exported(u"B"), Exported(u"A", u"B"), Exported(u"C", u"A")};
  Import();
  EXPECT_EQ(Tree(), "[B] nB\n  [A] nA\n    [C] nC\nTrash Can\n");
}

TEST_F(SynchronisationTest, ShowsWhatGoesToTheTrashAndComesBack) {
  application->objects = {Exported(u"A")};
  Import();
  application->objects.clear();
  NextMessage(
      u"1 item(s) no longer appear in the DOORS module and their corresponding Orim entries\r\nhave been "
      u"moved to the 'Trash Can' package.");
  EXPECT_TRUE(HasLine(Import(), u"   nA: Archived"));
  EXPECT_FALSE(HasLine(Import(), u"   nA: Archived")) << "reported once";
  application->objects = {Exported(u"A")};
  NextMessage(u"1 item(s) restored from the 'Trash Can' package.");
  EXPECT_TRUE(HasLine(Import(), u"   nA: Restored"));
}

TEST_F(SynchronisationTest, ASecondImportWritesNothingAndAsksNoMoreForALargerModule) {
  const auto calls_of_a_second_import = [&](int count) {
    application->objects.clear();
    for (int i = 1; i <= count; ++i)
      application->objects.push_back(
          Exported(ToText(i), i % 4 < 2 ? u"" : ToText(i - i % 4 + 1), Text(i % 3 ? 5 : 300, u'x')));
    Import();
    EXPECT_EQ(WritesOfAnImport(), 0) << count;
    return model.Counters().Calls();
  };
  const auto few = calls_of_a_second_import(10);
  EXPECT_EQ(calls_of_a_second_import(400), few);
}

TEST_F(SynchronisationTest, WhatIsNewOrChangedCostsFewCallsAndSaves) {
  StoreRules({u"Object Heading --> Name", u"Object Text --> Notes", u"Object Number --> Alias",
              u"Object Short Text --> Status", u"Created On --> Phase", u"Last Modified On --> Version",
              u"Mood --> (Tagged Value)", u"Created By --> (Tagged Value)", u"V1 --> (Tagged Value)",
              u"V2 --> (Tagged Value)", u"V3 --> (Tagged Value)", u"V4 --> (Tagged Value)",
              u"V5 --> (Tagged Value)"});
  for (const char16_t* name : {u"V1", u"V2", u"V3", u"V4", u"V5"}) application->attributes.push_back(name);
  application->objects = {Exported(u"A")};
  Import();
  EXPECT_EQ(WritesOfAnImport(), 0);
  const long long calls_of_every_import = model.Counters().Calls();
  application->objects.push_back(Exported(u"B"));
  EXPECT_EQ(WritesOfAnImport(), 11) << "the element, its fields, its place, eight tagged values";
  EXPECT_LE(model.Counters().Calls() - calls_of_every_import, 40);
  application->objects[1] = {{"a1", u"B"}, {"a9", u"renamed"}, {"a2", u"1.1"}, {"a12", u"merry"}};
  EXPECT_EQ(WritesOfAnImport(), 2) << "its fields, a tagged value";
  EXPECT_LE(model.Counters().Calls() - calls_of_every_import, 8);
}

TEST_F(SynchronisationTest, OnlyWhatDiffersIsWrittenAndShown) {
  application->objects = {Exported(u"A"), Exported(u"B", u"A")};
  Import();
  application->objects[0] = Exported(u"A", u"", u"merry");
  model.Counters().Reset();
  EXPECT_TRUE(HasLine(Import(), u"   nA: ... Mood: calm --> merry"));
  EXPECT_EQ(model.Counters().Writes(), 1);
  EXPECT_EQ(MoodOf(u"A"), u"merry");
}

TEST_F(SynchronisationTest, TwoElementsWithOneIdentifierEndTheImportBeforeAnythingChanges) {
  const auto first = AddElement(u"First", {{u"Object Identifier", u"A"}});
  const auto second = AddElement(u"Second", {{u"Object Identifier", u"A"}});
  MoveTo(second, MakePackage(u"Trash Can"));
  application->objects = {Exported(u"B")};
  NextMessage(u"The Object Identifier 'A' is carried by two elements, 'First' (id " +
              ToText(first.ElementID()) + u", in the package 'Requirements') and 'Second' (id " +
              ToText(second.ElementID()) +
              u", in the package 'Trash Can'). Remove the tagged value from one of them and import "
              u"again.\r\n(Error Code: -2146827831)");
  Import();
  EXPECT_EQ(Tree(), "[A] First\nTrash Can\n  [A] Second\n");
}

TEST_F(SynchronisationTest, AnElementWithTwoIdentifiersEndsTheImportToo) {
  const auto element = AddElement(u"Both", {{u"Object Identifier", u"A"}});
  element.TaggedValues().AddNew(u"Object Identifier", u"B").Save();
  application->objects = {Exported(u"A")};
  const Text both = u"'Both' (id " + ToText(element.ElementID()) + u", in the package 'Requirements')";
  NextMessage(u"The Object Identifier 'B' is carried by two elements, " + both + u" and " + both +
              u". Remove the tagged value from one of them and import again.\r\n(Error Code: -2146827831)");
  Import();
  EXPECT_EQ(Tree(), "[A] [B] Both\nTrash Can\n");
}

TEST_F(SynchronisationTest, ATaggedValueMayFillTwoColumns) {
  StoreRules({u"Object Identifier --> (Tagged Value)"});
  application->objects = {Exported(u"A")};
  Import();
  EXPECT_EQ(WritesOfAnImport(), 0);
}

TEST_F(SynchronisationTest, DamagedExportsGiveWarningsAndASoundTree) {
  const struct {
    std::vector<ExportedObject> exported;
    std::vector<Text> warnings;
    const char* tree;
  } cases[] = {
      {{Exported(u"A", u"A"), Exported(u"B", u"A")}, {u"'A' is its own ancestor"}, "[A] nA\n  [B] nB\n"},
      {{Exported(u"A", u"B"), Exported(u"B", u"C"), Exported(u"C", u"B"), Exported(u"D")},
       {u"'B' is its own ancestor"},
       "[B] nB\n  [A] nA\n  [C] nC\n[D] nD\n"},
      {{Exported(u"A"), Exported(u"B", u"X"), Exported(u"C", u"B")}, {}, "[A] nA\n[B] nB\n  [C] nC\n"},
      {{Exported(u"A"), Exported(u""), Exported(u"A"), Exported(u"")},
       {u"The Object Identifier 'A' stands twice", u"The object with the absolute number 7 has no",
        u"The object with the absolute number 7 has no"},
       "[A] nA\n"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.tree);
    GoOnWithAnotherPackage();
    StoreRules({u"Object Heading --> Name"});
    application->objects = each.exported;
    std::vector<Text> warnings;
    for (const Text& line : Import())
      if (line.starts_with(u"Warning: ")) warnings.push_back(line.substr(9));
    std::sort(warnings.begin(), warnings.end());
    ASSERT_EQ(warnings.size(), each.warnings.size());
    for (std::size_t i = 0; i < warnings.size(); ++i)
      EXPECT_TRUE(warnings[i].starts_with(each.warnings[i])) << ToUtf8(warnings[i]);
    EXPECT_EQ(Tree(), std::string(each.tree) + "Trash Can\n");
    EXPECT_EQ(WritesOfAnImport(), 0);
  }
}

TEST_F(SynchronisationTest, ANameThatTheHostDoesNotTakeIsTheIdentifierAndStaysIt) {
  application->objects = {{{"a1", u"A"}, {"a9", Text(256, u'x')}, {"a12", u"calm"}},
                          {{"a1", u"B"}},
                          {{"a1", u"C"}, {"a9", Text(255, u'x')}},
                          {{"a1", u"D"}, {"a9", u"{\\rtf1\\ansi plain\\par}"}}};
  const auto lines = Import();
  EXPECT_EQ(Tree(), "[A] A\n[B] B\n[C] " + std::string(255, 'x') + "\n[D] plain\nTrash Can\n");
  EXPECT_TRUE(
      HasLine(lines,
              u"Warning: The name of 'A' has 256 characters, of which the host takes 255. The element "
              u"is named after its Object Identifier."));
  EXPECT_TRUE(HasLine(lines, u"   plain: New")) << "not its rich text";
  EXPECT_EQ(MoodOf(u"A"), u"calm");
  EXPECT_EQ(WritesOfAnImport(), 0);
}

TEST_F(SynchronisationTest, ParentAndChildMayChangePlacesWhereTheChildComesFirst) {
  const struct {
    std::vector<ExportedObject> before, after;
    const char* tree;
  } cases[] = {
      {{Exported(u"A"), Exported(u"B", u"A")}, {Exported(u"A", u"B"), Exported(u"B")}, "[B] nB\n  [A] nA\n"},
      {{Exported(u"E"), Exported(u"X", u"E"), Exported(u"P", u"X")},
       {Exported(u"E", u"P"), Exported(u"X", u"E"), Exported(u"P")},
       "[P] nP\n  [E] nE\n    [X] nX\n"},
      {{Exported(u"A"), Exported(u"B", u"A"), Exported(u"C", u"B"), Exported(u"D", u"C")},
       {Exported(u"A", u"D"), Exported(u"B", u"C"), Exported(u"C", u"D"), Exported(u"D")},
       "[D] nD\n  [A] nA\n  [C] nC\n    [B] nB\n"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.tree);
    GoOnWithAnotherPackage();
    StoreRules({u"Object Heading --> Name"});
    application->objects = each.before;
    Import();
    application->objects = each.after;
    Import();
    EXPECT_EQ(Tree(), std::string(each.tree) + "Trash Can\n");
    EXPECT_EQ(WritesOfAnImport(), 0);
  }
}

TEST_F(SynchronisationTest, ChangesOfAnElementStayOneGroupWhenItsNameIsAmongThem) {
  StoreRules({u"Object Heading --> Name", u"Object Text --> Notes"});
  application->objects = {Exported(u"A"), {{"a1", u"B"}, {"a9", u"old"}, {"a4", u"text"}}};
  Import();
  application->objects = {{{"a1", u"B"}, {"a9", u"new"}, {"a4", u"other"}}, Exported(u"A")};
  const auto lines = Import();
  const auto head = std::find(lines.begin(), lines.end(), u"   old:");
  ASSERT_NE(head, lines.end());
  EXPECT_EQ(std::vector<Text>(head, head + 3),
            (std::vector<Text>{u"   old:", u"    ... Name: old --> new", u"    ... Notes: text --> other"}));
  EXPECT_TRUE(HasLine(lines, u"   nA: ... Position: 10 --> 20"));
}

TEST_F(SynchronisationTest, ALongIdentifierIsKnownAgain) {
  const Text identifier = u"R" + Text(300, u'1');
  application->objects = {Exported(identifier), Exported(u"B", identifier)};
  Import();
  EXPECT_EQ(WritesOfAnImport(), 0);
  EXPECT_EQ(model.Tree(package_id).size(), 3u) << "two elements and the trash package";
}

TEST_F(SynchronisationTest, ACombinedRuleWithoutItsFirstAttributeLeavesTheValueEmpty) {
  StoreRules({u"Gone [: Mood] --> Alias"});
  application->objects = {Exported(u"A")};
  EXPECT_TRUE(
      HasLine(Import(),
              u"Warning: The module has no attribute \"Gone\" any more: the rule \"Gone [: Mood] --> Alias\" "
              u"was dropped."));
  EXPECT_EQ(ElementOf(u"A").Field(u"Alias"), u"");
}

}  // namespace
}  // namespace kestrune
