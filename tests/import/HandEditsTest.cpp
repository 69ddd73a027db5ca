// What users do to the model by hand between two imports, and what is in an import's way then.
#include "tests/import/ImportTest.h"

namespace kestrune {
namespace {

using testing::Exported;

struct HandEditsTest : testing::ImportFixture {
  HandEditsTest() {
    StoreRules({u"Object Heading --> Name", u"Mood --> (Tagged Value)"});
    application->objects = testing::ObjectsOf(u"A B<A C<B");
    Import();
  }
  Text Ids(const char16_t* identifier) const { return ToText(ElementOf(identifier).ElementID()); }
  void Delete(const orim::Element& element) const {
    const auto elements = Package().Elements();
    for (std::int32_t i = 0; i < elements.Count(); ++i)
      if (elements.GetAt(i).ElementID() == element.ElementID()) return elements.DeleteAt(i, true);
    ADD_FAILURE() << "the element lies elsewhere";
  }
  void PutBelow(const orim::Element& element, std::int32_t parent_id) const {
    const orim::Element moved = repository.ElementByID(element.ElementID());
    moved.SetParentID(parent_id);
    moved.Save();
  }
  void NextArchives(int count) {
    NextMessage(ToText(count) +
                u" item(s) no longer appear in the DOORS module and their corresponding Orim entries\r\n"
                u"have been moved to the 'Trash Can' package.");
  }
};

TEST_F(HandEditsTest, AnElementBelowAForeignOneEndsTheImportWithWordsThatHelp) {
  const Text child = u"The element 'nC' (id " + Ids(u"C") + u", in the package 'Requirements') lies below ";
  const struct {
    const char* name;
    std::function<std::int32_t()> make_parent;
    Text description;  // before and after the parent's id
    Text after_id;
    bool is_deleted = false;
  } cases[] = {
      {"never imported", [&] { return AddElement(u"drawn").ElementID(); }, u"the element 'drawn' (id ",
       u", in the package 'Requirements'), which was not imported from DOORS. Move 'nC' out from below it, "
       u"for instance "
       u"to the top of its package, and import again."},
      {"in another package",
       [&] {
         const auto parent = AddElement(u"moved", {{u"Object Identifier", u"X"}});
         MoveTo(parent, MakePackage(u"Other"));
         return parent.ElementID();
       },
       u"the element 'moved' (id ",
       u"), which lies in another package, 'Other'. Move one of them so that both lie in the package that is "
       u"linked, or "
       u"move 'nC' to the top of its package, and import again."},
      {"deleted", [&] { return AddElement(u"drawn").ElementID(); }, u"an element with the id ",
       u", which does not exist any more. Move 'nC' to the top of its package and import again.", true},
  };
  for (const auto& each : cases) {
    const std::int32_t parent = each.make_parent();
    PutBelow(ElementOf(u"C"), parent);
    if (each.is_deleted) Delete(repository.ElementByID(parent));
    NextMessage(child + each.description + ToText(parent) + each.after_id + u"\r\n(Error Code: -2147221496)");
    Import();
  }
  PutBelow(ElementOf(u"C"), 0);
  Import();
  EXPECT_EQ(WritesOfAnImport(), 0);
}

TEST_F(HandEditsTest, AnArchivedElementMayLieBelowAnything) {
  application->objects = {Exported(u"A"), Exported(u"B", u"A")};
  NextArchives(1);
  Import();
  const orim::Element child = repository.ElementByID(model.Tree(Trash().PackageID())[0].id);
  const auto parent = AddElement(u"drawn");
  PutBelow(child, parent.ElementID());
  Import();
  EXPECT_EQ(WritesOfAnImport(), 0);
  application->objects.push_back(Exported(u"C"));
  NextMessage(u"1 item(s) restored from the 'Trash Can' package.");
  Import();
  EXPECT_EQ(Tree(), "drawn\n[A] nA\n  [B] nB\n[C] nC\nTrash Can\n");
  EXPECT_EQ(WritesOfAnImport(), 0);
}

TEST_F(HandEditsTest, ATaggedValueThatIsThereTwiceSettles) {
  for (const char16_t* value : {u"merry", u"calm", u"sad"})
    ElementOf(u"A").TaggedValues().AddNew(u"Mood", value).Save();
  ElementOf(u"A").TaggedValues().AddNew(u"Mine", u"sad").Save();
  const Text warning =
      u"Warning: The element 'nA' has the tagged value \"Mood\" more than once. Only one of them is kept "
      u"up to date; delete the others.";
  EXPECT_TRUE(HasLine(Import(), warning));
  EXPECT_EQ(WritesOfAnImport(), 0);
  application->objects[0] = Exported(u"A", u"", u"angry");
  EXPECT_TRUE(HasLine(Import(), u"   nA: ... Mood: calm --> angry"));
  EXPECT_EQ(WritesOfAnImport(), 0);
}

TEST_F(HandEditsTest, WhatIsLockedStaysWithItsChildrenAndIsNamed) {
  const auto stays = [](const Text& name, const Text& locked) {
    return u"Warning: '" + name +
           u"' is no longer in the DOORS module, but stays where it is with all that lies below it, "
           u"since '" +
           locked + u"' is locked. Unlock that element and import again.";
  };
  application->objects = {};
  model.SetLocked(ElementOf(u"B").ElementID(), true);
  const auto lines = Import();
  EXPECT_TRUE(HasLine(lines, stays(u"nA", u"nB")) && HasLine(lines, stays(u"nB", u"nB")));
  EXPECT_EQ(Tree(), "[A] nA\n  [B] nB\n    [C] nC\nTrash Can\n");
  model.SetLocked(ElementOf(u"B").ElementID(), false);
  NextArchives(3);
  Import();
  EXPECT_EQ(Tree(), "Trash Can\n  [A] nA\n  [B] nB\n  [C] nC\n") << "none of them below another";
  model.SetLocked(ElementOf(u"B").ElementID(), true);
  application->objects = {Exported(u"A"), Exported(u"B", u"A", u"new"), Exported(u"C", u"B", u"new")};
  NextMessage(u"2 item(s) restored from the 'Trash Can' package.");
  const auto back = Import();
  EXPECT_TRUE(
      HasLine(back,
              u"Warning: 'nB' is in the DOORS module again, but stays in the 'Trash Can' package, since "
              u"it is locked. Unlock it and import again."));
  EXPECT_TRUE(LinesThatBegin(u"ERROR: ", back).empty());
  EXPECT_TRUE(HasLine(back, u"   nC: Restored"));
  EXPECT_TRUE(HasLine(back, u"0 new, 1 changed, 0 moved, 0 archived, 2 restored, 0 unchanged, 1 failed"));
  EXPECT_EQ(Tree(), "[A] nA\n[C] nC\nTrash Can\n  [B] nB\n");
  model.SetLocked(ElementOf(u"B").ElementID(), false);
  NextMessage(u"1 item(s) restored from the 'Trash Can' package.");
  Import();
  EXPECT_EQ(Tree(), "[A] nA\n  [B] nB\n    [C] nC\nTrash Can\n");
  EXPECT_EQ(WritesOfAnImport(), 0);
}

TEST_F(HandEditsTest, AnElementThatWasNeverFinishedIsGoneOnWith) {
  AddElement(u"nD");
  const auto noted = AddElement(u"nE");
  noted.SetField(u"Notes", u"mine");
  noted.Save();
  AddElement(u"nF", {{u"Mine", u"x"}});
  for (const char16_t* identifier : {u"D", u"E", u"F"}) application->objects.push_back(Exported(identifier));
  application->objects.push_back({{"a1", u"G"}, {"a9", u"nD"}});
  Import();
  EXPECT_EQ(Tree(), "nE\nnF\n[A] nA\n  [B] nB\n    [C] nC\n[D] nD\n[E] nE\n[F] nF\n[G] nD\nTrash Can\n");
}

TEST_F(HandEditsTest, AnImportThatIsAboutToArchiveMostOfThePackageSaysSoFirst) {
  for (int i = 0; i < 35; ++i) application->objects.push_back(Exported(ToText(i)));
  Import();
  const struct {
    std::size_t left;
    int archived;
    TextView warning;
  } steps[] = {
      {19, 19, u""}, {9, 10, u"Warning: 10 of 19 elements are no longer in the DOORS module"}, {0, 9, u""}};
  for (const auto& step : steps) {
    application->objects.resize(step.left);
    NextArchives(step.archived);
    const auto lines = Import();
    const auto warnings = LinesThatBegin(u"Warning: ", lines);
    ASSERT_EQ(warnings.empty(), step.warning.empty()) << step.archived;
    if (warnings.empty()) continue;
    EXPECT_TRUE(warnings[0].starts_with(step.warning));
    EXPECT_LT(std::ranges::find(lines, warnings[0]), std::ranges::find(lines, Text(u"   n16: Archived")));
  }
}

}  // namespace
}  // namespace kestrune
