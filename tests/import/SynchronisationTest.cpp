#include "tests/import/ImportTest.h"

namespace kestrune {
namespace {

using testing::ImportFixture;

using testing::Exported;
using testing::ObjectsOf;

struct SynchronisationTest : ImportFixture {
  SynchronisationTest() { StoreRules({u"Object Heading --> Name", u"Mood --> (Tagged Value)"}); }
};

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
  EXPECT_EQ(model.Counters().ByMember().at(u"Call TaggedValues.Refresh"), 1);
  application->objects[1] = {{"a1", u"B"}, {"a9", u"renamed"}, {"a2", u"1.1"}, {"a12", u"merry"}};
  EXPECT_EQ(WritesOfAnImport(), 2) << "its fields, a tagged value";
  EXPECT_LE(model.Counters().Calls() - calls_of_every_import, 8);
  application->objects[0] = Exported(u"A", u"", u"merry");
  EXPECT_EQ(WritesOfAnImport(), 1) << "a tagged value";
}

TEST_F(SynchronisationTest, AnIdentifierThatIsThereTwiceEndsTheImportBeforeAnythingChanges) {
  const auto first = AddElement(u"First", {{u"Object Identifier", u"A"}});
  const auto second = AddElement(u"Second", {{u"Object Identifier", u"B"}});
  MoveTo(second, MakePackage(u"Trash Can"));
  application->objects = {Exported(u"A")};
  const Text doubled =
      u"The Object Identifier '%s' is carried by two elements, %s and %s. Remove the tagged value from "
      u"one of them and import again.\r\n(Error Code: -2146827831)";
  const Text in_package = u"'First' (id " + ToText(first.ElementID()) + u", in the package 'Requirements')";
  const Text in_trash = u"'Second' (id " + ToText(second.ElementID()) + u", in the package 'Trash Can')";
  second.TaggedValues().AddNew(u"Object Identifier", u"A").Save();
  NextMessage(FormatText(doubled, {u"A", in_package, in_trash}));
  Import();
  second.TaggedValues().DeleteAt(1, true);
  first.TaggedValues().AddNew(u"Object Identifier", u"C").Save();
  NextMessage(FormatText(doubled, {u"C", in_package, in_package}));
  Import();
  EXPECT_EQ(Tree(), "[A] [C] First\nTrash Can\n  [B] Second\n");
}

TEST_F(SynchronisationTest, DamagedAndReorderedExportsGiveASoundTree) {
  const struct {
    TextView before, exported;
    std::vector<Text> warnings;
    const char* tree;
  } cases[] = {
      {u"B", u"A<A B<A", {u"Warning: 'A' is its own ancestor"}, "[A] nA\n  [B] nB\n"},
      {u"B", u"A<C B<C C<B", {u"Warning: 'B' is its own ancestor"}, "[B] nB\n  [C] nC\n    [A] nA\n"},
      {u"B", u"A B<X C<B", {}, "[A] nA\n[B] nB\n  [C] nC\n"},
      {u"A",
       u"A  A ",  // two without an identifier
       {u"Warning: The object with the absolute number 7 has no",
        u"Warning: The Object Identifier 'A' stands twice",
        u"Warning: The object with the absolute number 7 has no"},
       "[A] nA\n"},
      {u"A B<A C<B", u"B A<B C<A", {}, "[B] nB\n  [A] nA\n    [C] nC\n"},
      {u"E X<E P<X", u"E<P X<E P", {}, "[P] nP\n  [E] nE\n    [X] nX\n"},
      {u"A B<A C D", u"C<B A<C D<A B", {}, "[B] nB\n  [C] nC\n    [A] nA\n      [D] nD\n"},
      {u"A B<A C<B D<C", u"A<D B<C C<D D", {}, "[D] nD\n  [A] nA\n  [C] nC\n    [B] nB\n"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.tree);
    GoOnWithAnotherPackage();
    StoreRules({u"Object Heading --> Name"});
    application->objects = ObjectsOf(each.before);
    Import();
    application->objects = ObjectsOf(each.exported);
    const auto warnings = LinesThatBegin(u"Warning: ", Import());
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
  EXPECT_EQ(LinesThatBegin(u"Warning: ", lines),
            (std::vector<Text>{
                u"Warning: The name of 'A' has 256 characters, of which the host takes 255. The element "
                u"is named after its Object Identifier."}));
  EXPECT_TRUE(HasLine(lines, u"   plain: New")) << "not its rich text";
  EXPECT_EQ(ElementOf(u"A").TaggedValues().Find(u"Mood").Value(), u"calm");
  EXPECT_EQ(WritesOfAnImport(), 0);
  application->objects[2] = {{"a1", u"C"}, {"a9", Text(257, u'y')}};
  EXPECT_TRUE(
      HasLine(Import(),
              u"Warning: The name of 'C' has 257 characters, of which the host takes 255. The element "
              u"is named after its Object Identifier."));
}

TEST_F(SynchronisationTest, RichTextThatStandsInAnElementAsItCameIsConverted) {
  StoreRules({u"Object Text (Formatted) --> Notes"});
  const Text rich = u"{\\rtf1\\ansi plain\\par}";
  application->objects = {{{"a1", u"A"}, {"a11", rich}}};
  Import();
  EXPECT_EQ(ElementOf(u"A").Field(u"Notes"), u"plain");
  orim::Element element = ElementOf(u"A");
  element.SetField(u"Notes", rich);
  element.Save();
  Import();
  EXPECT_EQ(ElementOf(u"A").Field(u"Notes"), u"plain");
}

TEST_F(SynchronisationTest, ALongIdentifierIsKnownAgain) {
  StoreRules({});
  const Text identifier = Text(254, u'1') + u"\U0001F600" + Text(50, u'1');
  application->objects = {Exported(identifier), Exported(u"B", identifier)};
  Import();
  EXPECT_EQ(WritesOfAnImport(), 0);
  const auto tree = model.Tree(package_id);
  ASSERT_EQ(tree.size(), 3u) << "two elements and the trash package";
  EXPECT_EQ(tree[0].name, Text(254, u'1')) << "no character cut in two";
  EXPECT_EQ(tree[0].type, u"Requirement");
}

}  // namespace
}  // namespace kestrune
