#include "tests/import/ImportTest.h"

namespace kestrune {
namespace {

using testing::ImportFixture;
using workbench::HostFaults;

struct SynchronisationTest : ImportFixture {
  SynchronisationTest() { StoreRules({u"Object Heading --> Name", u"Mood --> (Tagged Value)"}); }
  void SetObjects(std::vector<testing::ExportedObject> exported) {
    application->OwnAttributes = {"Mood"};
    application->Objects = std::move(exported);
  }
  Text MoodOf(const Text& identifier) const {
    const auto mood = ElementOf(identifier).TaggedValues().Find(u"Mood");
    return mood ? mood.Value() : u"(none)";
  }
};

const testing::ExportedObject kA = {{"a0", "1"}, {"a1", "A"}, {"a9", "Alpha"}, {"a12", "calm"}};
const testing::ExportedObject kB = {{"a0", "2"}, {"a1", "B"}, {"a9", "Beta"}, {"a10", "A"}};
const testing::ExportedObject kC = {{"a0", "3"}, {"a1", "C"}, {"a9", "Gamma"}, {"a10", "B"}};

TEST_F(SynchronisationTest, TheTreeFollowsTheModule) {
  SetObjects({kA, kB, kC, {{"a1", "D"}, {"a9", "Delta"}}});
  Import();
  EXPECT_EQ(Tree(), "[A] Alpha\n  [B] Beta\n    [C] Gamma\n[D] Delta\nTrash Can\n");
  EXPECT_EQ(MoodOf(u"A"), u"calm");
  SetObjects({{{"a1", "D"}, {"a9", "Delta"}},
              {{"a1", "C"}, {"a9", "Gamma"}, {"a10", "D"}},
              kA,
              {{"a1", "B"}, {"a9", "Beta"}}});
  Import();
  EXPECT_EQ(Tree(), "[D] Delta\n  [C] Gamma\n[A] Alpha\n[B] Beta\nTrash Can\n");
  SetObjects({{{"a1", "C"}, {"a9", "Gamma"}}, {{"a1", "D"}, {"a9", "Delta"}, {"a10", "C"}}, kA, kB});
  Import();
  EXPECT_EQ(Tree(), "[C] Gamma\n  [D] Delta\n[A] Alpha\n  [B] Beta\nTrash Can\n")
      << "parent and child change places";
}

TEST_F(SynchronisationTest, WhatLeavesTheModuleGoesToTheTrashAndComesBack) {
  SetObjects({kA, kB, kC});
  Import();
  SetObjects({kA, {{"a1", "C"}, {"a9", "Gamma"}, {"a10", "A"}}});
  NextMessage(
      u"1 item(s) no longer appear in the DOORS module and their corresponding Orim entries\r\nhave been "
      u"moved to the "
      u"'Trash Can' package.");
  const auto archived = Import();
  EXPECT_NE(std::find(archived.begin(), archived.end(), u"   Beta: Archived"), archived.end());
  EXPECT_EQ(Tree(), "[A] Alpha\n  [C] Gamma\nTrash Can\n  [B] Beta\n");
  const auto again = Import();
  EXPECT_EQ(std::find(again.begin(), again.end(), u"   Beta: Archived"), again.end()) << "reported once";
  SetObjects({kA, kB, kC});
  NextMessage(u"1 item(s) restored from the 'Trash Can' package.");
  const auto restored = Import();
  EXPECT_NE(std::find(restored.begin(), restored.end(), u"   Beta: Restored"), restored.end());
  EXPECT_EQ(Tree(), "[A] Alpha\n  [B] Beta\n    [C] Gamma\nTrash Can\n");
}

TEST_F(SynchronisationTest, ASecondImportWritesNothingAndAsksNoMoreForALargerModule) {
  const auto calls_of_a_second_import = [&](int count) {
    std::vector<testing::ExportedObject> exported;
    for (int i = 1; i <= count; ++i) {
      const std::string id = std::to_string(i);
      exported.push_back(
          {{"a0", id}, {"a1", "R" + id}, {"a9", "H" + id}, {"a12", std::string(i % 3 ? 5 : 300, 'x')}});
      if (i % 4) exported.back().push_back({"a10", "R" + std::to_string(i - i % 4 ? i - i % 4 : 1)});
    }
    exported[0].pop_back();
    SetObjects(exported);
    Import();
    model.Counters().Reset();
    Import();
    EXPECT_EQ(model.Counters().Writes(), 0) << count;
    return model.Counters().Calls();
  };
  const auto few = calls_of_a_second_import(10);
  EXPECT_EQ(calls_of_a_second_import(400), few);
}

TEST_F(SynchronisationTest, OnlyWhatDiffersIsWrittenAndShown) {
  SetObjects({kA, kB});
  Import();
  SetObjects({{{"a0", "1"}, {"a1", "A"}, {"a9", "Alpha"}, {"a12", "merry"}}, kB});
  model.Counters().Reset();
  const auto lines = Import();
  EXPECT_EQ(model.Counters().Writes(), 1);
  EXPECT_NE(std::find(lines.begin(), lines.end(), u"   Alpha: ... Mood: calm --> merry"), lines.end());
  EXPECT_EQ(MoodOf(u"A"), u"merry");
}

TEST_F(SynchronisationTest, AValueThatIsGoneIsEmptied) {
  SetObjects({kA});
  Import();
  SetObjects({{{"a1", "A"}, {"a9", "Alpha"}}});
  Import();
  EXPECT_EQ(MoodOf(u"A"), u"");
  model.Counters().Reset();
  Import();
  EXPECT_EQ(model.Counters().Writes(), 0);
}

TEST_F(SynchronisationTest, RichTextIsConvertedBeforeItIsCompared) {
  StoreRules({u"Object Heading --> Name", u"Object Text --> Notes"});
  SetObjects({{{"a1", "A"}, {"a4", "{\\rtf1 plain \\b bold\\b0\\par}"}},
              {{"a1", "B"}, {"a4", "{\\b bold} as it is"}}});
  Import();
  EXPECT_EQ(ElementOf(u"A").Field(u"Notes"), u"plain <b>bold</b>");
  EXPECT_EQ(ElementOf(u"B").Field(u"Notes"), u"{\\b bold} as it is");
  model.Counters().Reset();
  Import();
  EXPECT_EQ(model.Counters().Writes(), 0);
}

TEST_F(SynchronisationTest, TwoElementsWithOneIdentifierEndTheImportBeforeAnythingChanges) {
  const auto first = AddElement(u"First", {{u"Object Identifier", u"A"}});
  const auto second = AddElement(u"Second", {{u"Object Identifier", u"A"}});
  SetObjects({kB});
  NextMessage(u"The Object Identifier 'A' is carried by two elements, 'First' (id " +
              ToText(first.ElementID()) + u") and 'Second' (id " + ToText(second.ElementID()) +
              u"). Remove the tagged value from one of them and import again.\r\n(Error Code: -2146827831)");
  Import();
  EXPECT_EQ(Tree(), "[A] First\n[A] Second\nTrash Can\n");
}

TEST_F(SynchronisationTest, DamagedExportsGiveWarningsAndASoundTree) {
  const auto object = [](const std::string& id, const std::string& parent) {
    return testing::ExportedObject{{"a0", "7"}, {"a1", id}, {"a9", "n" + id}, {"a10", parent}};
  };
  const struct {
    const char* name;
    std::vector<testing::ExportedObject> exported;
    std::vector<Text> warnings;
    const char* tree;
  } cases[] = {
      {"its own parent",
       {object("A", "A"), object("B", "A")},
       {u"'A' is its own ancestor"},
       "[A] nA\n  [B] nB\n"},
      {"a circle, met from below",
       {object("A", "B"), object("B", "C"), object("C", "B"), object("D", "")},
       {u"'B' is its own ancestor"},
       "[B] nB\n  [A] nA\n  [C] nC\n[D] nD\n"},
      {"a parent that is not there",
       {object("A", ""), object("B", "X"), object("C", "B")},
       {u"The parent 'X' of 'B' is not in the module"},
       "[A] nA\n[B] nB\n  [C] nC\n"},
      {"no identifier, and one twice",
       {object("A", ""), object("", ""), object("A", ""), object("", "")},
       {u"The Object Identifier 'A' stands twice", u"The object with the absolute number 7 has no",
        u"The object with the absolute number 7 has no"},
       "[A] nA\n"},
  };
  for (const auto& each : cases) {
    TestHost host;
    SetObjects(each.exported);
    repository = host.repository;
    std::swap(model, host.model);
    repository.CreateOutputTab(u"DOORS");
    SaveLinkFile(platform, Guid(), u"/P/M");
    StoreRules({u"Object Heading --> Name"});
    std::vector<Text> warnings;
    for (const Text& line : Import())
      if (line.starts_with(u"Warning: ")) warnings.push_back(line.substr(9));
    std::sort(warnings.begin(), warnings.end());
    ASSERT_EQ(warnings.size(), each.warnings.size()) << each.name;
    for (std::size_t i = 0; i < warnings.size(); ++i)
      EXPECT_TRUE(warnings[i].starts_with(each.warnings[i])) << each.name << ": " << ToUtf8(warnings[i]);
    EXPECT_EQ(Tree(), std::string(each.tree) + "Trash Can\n") << each.name;
    model.Counters().Reset();
    Import();
    EXPECT_EQ(model.Counters().Writes(), 0) << each.name;
  }
}

TEST_F(SynchronisationTest, AFailedAttributeMayBeExcluded) {
  const Text question =
      u"There was an error importing the following attribute(s): \r\n\r\n   Status, Mood\r\n\r\nExclude them "
      u"from "
      u"future imports?\r\n";
  StoreRules({u"Object Heading --> Name", u"Mood --> (Tagged Value)", u"Created By --> Status"});
  const AutomationError refusal(0x80004005, u"host", u"no");
  model.Faults().FailTaggedValue(u"Mood", HostFaults::Moment::kSave, refusal);
  model.Faults().FailElementField(u"Status", HostFaults::Moment::kSave, refusal);
  SetObjects({{{"a1", "A"}, {"a6", "Ann"}, {"a12", "calm"}}, {{"a1", "B"}, {"a6", "Bob"}, {"a12", "calm"}}});
  application->Objects[0].push_back({"a9", "Alpha"});
  NextMessage(question, Answer::kNo);
  const auto lines = Import();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), u"ERROR: no"), 2) << "each is tried once";
  NextMessage(question, Answer::kYes);
  Import();
  Options options(doors);
  ASSERT_TRUE(options.Load(Package()));
  EXPECT_EQ(options.FindAttribute(u"Mood"), 0u);
  EXPECT_EQ(options.FindAttribute(u"Created By"), 0u);
  EXPECT_NE(options.FindAttribute(u"Object Heading"), 0u);
  Import();
}

TEST_F(SynchronisationTest, ANameThatTheHostRefusesIsTheFailureOfItsField) {
  SetObjects({{{"a1", "A"}, {"a9", std::string(300, 'x')}, {"a12", "calm"}}});
  NextMessage(
      u"There was an error importing the following attribute(s): \r\n\r\n   Name\r\n\r\nExclude them from "
      u"future "
      u"imports?\r\n",
      Answer::kNo);
  Import();
  EXPECT_EQ(Tree(), "[A] A\nTrash Can\n");
  EXPECT_EQ(MoodOf(u"A"), u"calm");
}

}  // namespace
}  // namespace kestrune
