#include "tests/orim-standin/Support.h"

namespace kestrune::workbench {
namespace {

class OrimObjects : public ModelTest {};

TEST_F(OrimObjects, EveryElementFieldComesBackAfterItsSave) {
  const char16_t* const texts[] = {u"Name",    u"Notes",    u"Alias",      u"Author",   u"Phase",
                                   u"Version", u"Priority", u"Difficulty", u"KeyWords", u"Status"};
  Object element = AddElement(u"E");
  const std::int32_t parent_id = AddElementId(u"Parent");
  for (const char16_t* field : texts) element.Put(field, Text(u"of ") + field + u"\xD800\r\n");
  element.Put(u"ParentID", parent_id);
  element.Put(u"TreePos", u"30");
  element.Call(u"Save");

  const Object stored = ElementOf(element.Get(u"ElementID").ToInt());
  for (const char16_t* field : texts)
    EXPECT_EQ(stored.Get(field).ToText(), Text(u"of ") + field + u"\xD800\r\n");
  EXPECT_EQ(stored.Get(u"ParentID").ToInt(), parent_id);
  EXPECT_EQ(stored.Get(u"TreePos").ToInt(), 30);
  EXPECT_EQ(stored.Get(u"PackageID").ToInt(), package_id);
  EXPECT_EQ(stored.Get(u"Type").ToText(), u"Requirement");
  EXPECT_EQ(stored.Get(u"Guid").ToText(), element.Get(u"Guid").ToText());
  EXPECT_FALSE(stored.Get(u"Locked").ToBool());
}

TEST_F(OrimObjects, UnsavedChangesAreSeenByTheirOwnObjectOnly) {
  Object one = AddElement(u"Before");
  const std::int32_t id = one.Get(u"ElementID").ToInt();
  const Object other = ElementOf(id);
  one.Put(u"Name", u"After");
  EXPECT_EQ(one.Get(u"Name").ToText(), u"After");
  EXPECT_EQ(ElementOf(id).Get(u"Name").ToText(), u"Before");
  one.Call(u"Save");
  EXPECT_EQ(ElementOf(id).Get(u"Name").ToText(), u"After");
  EXPECT_EQ(other.Get(u"Name").ToText(), u"Before");

  AddTaggedValue(one, u"Tag", u"old");
  Object tag = TaggedValues(one).Call(u"GetByName", {u"Tag"}).ToObject();
  tag.Put(u"Value", u"new");
  EXPECT_EQ(TaggedValues(one).Call(u"GetAt", {0}).ToObject().Get(u"Value").ToText(), u"old");
  tag.Call(u"Save");
  EXPECT_EQ(TaggedValues(one).Call(u"GetAt", {0}).ToObject().Get(u"Value").ToText(), u"new");

  Object package = Package();
  package.Put(u"Name", u"Renamed");
  EXPECT_EQ(Package().Get(u"Name").ToText(), u"Requirements");
  package.Call(u"Save");
  EXPECT_EQ(Package().Get(u"Name").ToText(), u"Renamed");
  EXPECT_EQ(Package().Get(u"Element").ToObject().Get(u"Name").ToText(), u"Renamed");
}

TEST_F(OrimObjects, WhatAddNewMakesIsStoredByItsSave) {
  const Object elements = Package().Get(u"Elements").ToObject();
  EXPECT_EQ(elements.Get(u"Count").ToInt(), 0);
  Object element = elements.Call(u"AddNew", {u"New", u"Requirement"}).ToObject();
  elements.Call(u"Refresh");
  EXPECT_EQ(elements.Get(u"Count").ToInt(), 0);
  EXPECT_EQ(element.Get(u"ElementID").ToInt(), 0);
  element.Call(u"Save");
  EXPECT_EQ(elements.Get(u"Count").ToInt(), 0) << "the list waits for Refresh";
  elements.Call(u"Refresh");
  ASSERT_EQ(elements.Get(u"Count").ToInt(), 1);
  EXPECT_EQ(elements.Call(u"GetAt", {0}).ToObject().Get(u"Name").ToText(), u"New");
  EXPECT_EQ(elements.Call(u"GetByName", {u"New"}).ToObject().Get(u"ElementID").ToInt(),
            element.Get(u"ElementID").ToInt());
}

TEST_F(OrimObjects, ANewPackageHasAnElementInItsParent) {
  const Object packages = Package().Get(u"Packages").ToObject();
  Object child = packages.Call(u"AddNew", {u"Trash Can", u""}).ToObject();
  child.Put(u"Flags", u"x=1;");
  child.Call(u"Save");
  EXPECT_EQ(packages.Get(u"Count").ToInt(), 1);
  const Object found = packages.Call(u"GetByName", {u"Trash Can"}).ToObject();
  EXPECT_EQ(found.Get(u"PackageID").ToInt(), child.Get(u"PackageID").ToInt());
  EXPECT_EQ(found.Get(u"Flags").ToText(), u"x=1;");
  const Object element = found.Get(u"Element").ToObject();
  EXPECT_EQ(element.Get(u"Type").ToText(), u"Package");
  EXPECT_EQ(element.Get(u"PackageID").ToInt(), package_id);
  EXPECT_EQ(Package().Get(u"Elements").ToObject().Get(u"Count").ToInt(), 0);
  const Variant guid = found.Get(u"PackageGuid");
  EXPECT_EQ(repository.Call(u"PackageByGuid", {guid}).ToObject().Get(u"Name").ToText(), u"Trash Can");
}

TEST_F(OrimObjects, ATaggedValueIsDeletedAtOnce) {
  const Object element = AddElement(u"E");
  for (const char16_t* name : {u"a", u"b", u"c"}) AddTaggedValue(element, name, u"1");
  const Object tags = TaggedValues(element);
  Object doomed = tags.Call(u"GetAt", {1}).ToObject();
  tags.Call(u"DeleteAt", {1, true});
  ASSERT_EQ(tags.Get(u"Count").ToInt(), 2);
  EXPECT_EQ(tags.Call(u"GetAt", {1}).ToObject().Get(u"Name").ToText(), u"c");
  EXPECT_EQ(FailureOf([&] { doomed.Call(u"Save"); }), "The tagged value \"b\" no longer exists");

  tags.Call(u"DeleteAt", {0, false});
  EXPECT_EQ(tags.Get(u"Count").ToInt(), 2) << "the list waits for Refresh";
  EXPECT_EQ(FailureOf([&] { tags.Call(u"GetAt", {0}); }), "The tagged value is deleted");
  tags.Call(u"Refresh");
  EXPECT_EQ(tags.Get(u"Count").ToInt(), 1);
}

TEST_F(OrimObjects, TheSelectionIsAPackageAnElementOrNothing) {
  EXPECT_TRUE(repository.Call(u"SelectedPackage").IsEmpty());
  EXPECT_TRUE(repository.Call(u"ContextItem").IsEmpty());
  EXPECT_EQ(repository.Call(u"ContextItemType").ToInt(), 0);

  model.SelectPackage(package_id);
  EXPECT_EQ(repository.Call(u"ContextItemType").ToInt(), 5);
  EXPECT_EQ(repository.Call(u"ContextItem").ToObject().Get(u"PackageID").ToInt(), package_id);

  const std::int32_t id = AddElementId(u"E");
  model.SelectPackage(0);
  model.SelectElement(id);
  EXPECT_EQ(repository.Call(u"ContextItemType").ToInt(), 4);
  EXPECT_EQ(repository.Call(u"ContextItem").ToObject().Get(u"ElementID").ToInt(), id);
  EXPECT_EQ(repository.Call(u"SelectedPackage").ToObject().Get(u"PackageID").ToInt(), package_id);
}

TEST_F(OrimObjects, TheWindowShowsWhatIsWrittenAndRefreshed) {
  EXPECT_EQ(FailureOf([&] {
              repository.Call(u"WriteOutput", {u"DOORS", u"early", -1});
            }),
            "There is no output tab \"DOORS\"");
  repository.Call(u"CreateOutputTab", {u"DOORS"});
  repository.Call(u"WriteOutput", {u"DOORS", u"Line", -1});
  repository.Call(u"CreateOutputTab", {u"DOORS"});
  ASSERT_EQ(model.OutputLines(u"DOORS").size(), 1u);
  EXPECT_EQ(model.OutputLines(u"DOORS")[0].Line, u"Line");
  EXPECT_EQ(model.OutputLines(u"DOORS")[0].ItemId, -1);

  repository.Call(u"RefreshModelView", {package_id});
  EXPECT_EQ(model.RefreshedPackages(), std::vector<std::int32_t>{package_id});
  model.SetLibraryBuild(826);
  EXPECT_EQ(repository.Get(u"LibraryBuild").ToInt(), 826);
}

}  // namespace
}  // namespace kestrune::workbench
