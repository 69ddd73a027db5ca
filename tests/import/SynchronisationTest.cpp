#include "tests/import/ImportTest.h"

namespace kestrune {
namespace {

using standins::HostFaults;
using testing::ImportFixture;

using testing::ExportedObject;

struct SynchronisationTest : ImportFixture {
  SynchronisationTest() { StoreRules({u"Object Heading --> Name", u"Mood --> (Tagged Value)"}); }
  Text MoodOf(const Text& identifier) const {
    const auto mood = ElementOf(identifier).TaggedValues().Find(u"Mood");
    return mood ? mood.Value() : u"(none)";
  }
};

/// Its heading is "n" and the identifier.
ExportedObject Exported(const Text& identifier, const Text& parent = u"", const Text& mood = u"calm") {
  return {{"a0", u"7"}, {"a1", identifier}, {"a9", u"n" + identifier}, {"a10", parent}, {"a12", mood}};
}

bool HasLine(const std::vector<Text>& lines, const Text& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

TEST_F(SynchronisationTest, ParentAndChildMayChangePlaces) {
  application->Objects = {Exported(u"A"), Exported(u"B", u"A"), Exported(u"C", u"B")};
  Import();
  EXPECT_EQ(Tree(), "[A] nA\n  [B] nB\n    [C] nC\nTrash Can\n");
  application->Objects = {Exported(u"B"), Exported(u"A", u"B"), Exported(u"C", u"A")};
  Import();
  EXPECT_EQ(Tree(), "[B] nB\n  [A] nA\n    [C] nC\nTrash Can\n");
}

TEST_F(SynchronisationTest, ShowsWhatGoesToTheTrashAndComesBack) {
  application->Objects = {Exported(u"A")};
  Import();
  application->Objects.clear();
  NextMessage(
      u"1 item(s) no longer appear in the DOORS module and their corresponding Orim entries\r\nhave been "
      u"moved to the 'Trash Can' package.");
  EXPECT_TRUE(HasLine(Import(), u"   nA: Archived"));
  EXPECT_FALSE(HasLine(Import(), u"   nA: Archived")) << "reported once";
  application->Objects = {Exported(u"A")};
  NextMessage(u"1 item(s) restored from the 'Trash Can' package.");
  EXPECT_TRUE(HasLine(Import(), u"   nA: Restored"));
}

TEST_F(SynchronisationTest, ASecondImportWritesNothingAndAsksNoMoreForALargerModule) {
  const auto calls_of_a_second_import = [&](int count) {
    application->Objects.clear();
    for (int i = 1; i <= count; ++i)
      application->Objects.push_back(
          Exported(ToText(i), i % 4 < 2 ? u"" : ToText(i - i % 4 + 1), Text(i % 3 ? 5 : 300, u'x')));
    Import();
    EXPECT_EQ(WritesOfAnImport(), 0) << count;
    return model.Counters().Calls();
  };
  const auto few = calls_of_a_second_import(10);
  EXPECT_EQ(calls_of_a_second_import(400), few);
}

TEST_F(SynchronisationTest, OnlyWhatDiffersIsWrittenAndShown) {
  application->Objects = {Exported(u"A"), Exported(u"B", u"A")};
  Import();
  application->Objects[0] = Exported(u"A", u"", u"merry");
  model.Counters().Reset();
  EXPECT_TRUE(HasLine(Import(), u"   nA: ... Mood: calm --> merry"));
  EXPECT_EQ(model.Counters().Writes(), 1);
  EXPECT_EQ(MoodOf(u"A"), u"merry");
}

TEST_F(SynchronisationTest, TwoElementsWithOneIdentifierEndTheImportBeforeAnythingChanges) {
  const auto first = AddElement(u"First", {{u"Object Identifier", u"A"}});
  const auto second = AddElement(u"Second", {{u"Object Identifier", u"A"}});
  application->Objects = {Exported(u"B")};
  NextMessage(u"The Object Identifier 'A' is carried by two elements, 'First' (id " +
              ToText(first.ElementID()) + u") and 'Second' (id " + ToText(second.ElementID()) +
              u"). Remove the tagged value from one of them and import again.\r\n(Error Code: -2146827831)");
  Import();
  EXPECT_EQ(Tree(), "[A] First\n[A] Second\nTrash Can\n");
}

TEST_F(SynchronisationTest, AnElementWithTwoIdentifiersEndsTheImportToo) {
  const auto element = AddElement(u"Both", {{u"Object Identifier", u"A"}});
  element.TaggedValues().AddNew(u"Object Identifier", u"B").Save();
  application->Objects = {Exported(u"A")};
  const Text both = u"'Both' (id " + ToText(element.ElementID()) + u")";
  NextMessage(u"The Object Identifier 'B' is carried by two elements, " + both + u" and " + both +
              u". Remove the tagged value from one of them and import again.\r\n(Error Code: -2146827831)");
  Import();
  EXPECT_EQ(Tree(), "[A] [B] Both\nTrash Can\n");
}

TEST_F(SynchronisationTest, ATaggedValueMayFillTwoColumns) {
  StoreRules({u"Object Identifier --> (Tagged Value)"});
  application->Objects = {Exported(u"A")};
  Import();
  EXPECT_EQ(WritesOfAnImport(), 0);
}

TEST_F(SynchronisationTest, AfterAnIdentifierThatWasRefusedNoMoreElementsAreMade) {
  application->Objects = {Exported(u"A"), Exported(u"B"), Exported(u"C")};
  model.Faults().FailTaggedValue(u"Object Identifier", HostFaults::Moment::kSave,
                                 {0x80040300, u"Orim", u"no"});
  NextMessage(FormatResText(text::kExcludeQuestion, {u"Object Identifier"}), Answer::kNo);
  const auto lines = Import();
  EXPECT_TRUE(HasLine(lines, u"ERROR: no"));
  for (const char16_t* identifier : {u"B", u"C"})
    EXPECT_TRUE(HasLine(lines, Text(u"Warning: No element was made for '") + identifier +
                                   u"': its Object Identifier could not be stored."));
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
    package_id = model.AddPackage(0, u"Another");
    model.SelectPackage(package_id);
    SaveLinkFile(platform, Guid(), u"/P/M");
    StoreRules({u"Object Heading --> Name"});
    application->Objects = each.exported;
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

Text ExcludeQuestion(const Text& fields) {
  return u"There was an error importing the following attribute(s): \r\n\r\n   " + fields +
         u"\r\n\r\nExclude them from future imports?\r\n";
}

TEST_F(SynchronisationTest, AFailedAttributeMayBeExcluded) {
  StoreRules({u"Object Heading --> Name", u"Mood --> (Tagged Value)", u"Created By --> Status"});
  const AutomationError refusal(0x80004005, u"host", u"no");
  model.Faults().FailTaggedValue(u"Mood", HostFaults::Moment::kSave, refusal);
  model.Faults().FailElementField(u"Status", HostFaults::Moment::kSave, refusal);
  for (const Text identifier : {u"A", u"B"}) {
    application->Objects.push_back(Exported(identifier));
    application->Objects.back().push_back({"a6", u"Ann"});
  }
  NextMessage(ExcludeQuestion(u"Status, Mood"), Answer::kNo);
  const auto lines = Import();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), u"ERROR: no"), 2) << "each is tried once";
  NextMessage(ExcludeQuestion(u"Status, Mood"), Answer::kYes);
  Import();
  Options options(doors);
  ASSERT_TRUE(options.Load(Package()));
  EXPECT_EQ(options.FindAttribute(u"Mood"), 0u);
  EXPECT_EQ(options.FindAttribute(u"Created By"), 0u);
  EXPECT_NE(options.FindAttribute(u"Object Heading"), 0u);
  Import();
}

TEST_F(SynchronisationTest, ANameThatTheHostRefusesIsTheFailureOfItsField) {
  application->Objects = {{{"a1", u"A"}, {"a9", Text(300, u'x')}, {"a12", u"calm"}}};
  NextMessage(ExcludeQuestion(u"Name"), Answer::kNo);
  Import();
  EXPECT_EQ(Tree(), "[A] A\nTrash Can\n");
  EXPECT_EQ(MoodOf(u"A"), u"calm");
}

}  // namespace
}  // namespace kestrune
