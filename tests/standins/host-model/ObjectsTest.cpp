#include "tests/standins/host-model/Support.h"

namespace kestrune::standins {
namespace {

class OrimObjects : public ModelTest {};

TEST_F(OrimObjects, UnsavedChangesAreSeenByTheirOwnObjectOnly) {
  const Object one = AddElement(u"Before"), other = ElementOf(IdOf(one));
  one.Put(u"Name", u"After");
  EXPECT_EQ(one.Get(u"Name").ToText(), u"After");
  EXPECT_EQ(ElementOf(IdOf(one)).Get(u"Name").ToText(), u"Before");
  one.Call(u"Save");
  EXPECT_EQ(ElementOf(IdOf(one)).Get(u"Name").ToText(), u"After");
  EXPECT_EQ(other.Get(u"Name").ToText(), u"Before");

  const Object package = Package();
  package.Put(u"Name", u"Renamed");
  EXPECT_EQ(Package().Get(u"Name").ToText(), u"Requirements");
  package.Call(u"Save");
  EXPECT_EQ(Package().Get(u"Element").ToObject().Get(u"Name").ToText(), u"Renamed");
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
  const std::int32_t id = IdOf(AddElement(u"E"));
  model.SelectPackage(0);
  model.SelectElement(id);
  EXPECT_EQ(repository.Call(u"ContextItemType").ToInt(), 4);
  EXPECT_EQ(IdOf(repository.Call(u"ContextItem").ToObject()), id);
  EXPECT_EQ(repository.Call(u"SelectedPackage").ToObject().Get(u"PackageID").ToInt(), package_id);
}

TEST_F(OrimObjects, OutputNeedsItsTab) {
  const Args line = {u"DOORS", u"Line", -1};
  EXPECT_EQ(FailureOf([&] { repository.Call(u"WriteOutput", line); }), "There is no output tab \"DOORS\"");
  repository.Call(u"CreateOutputTab", {u"DOORS"});
  repository.Call(u"WriteOutput", line);
  repository.Call(u"CreateOutputTab", {u"DOORS"});
  ASSERT_EQ(model.OutputLines(u"DOORS").size(), 1u);
  EXPECT_EQ(model.OutputLines(u"DOORS")[0].line, u"Line");
  EXPECT_EQ(model.OutputLines(u"DOORS")[0].item_id, -1);
}

}  // namespace
}  // namespace kestrune::standins
