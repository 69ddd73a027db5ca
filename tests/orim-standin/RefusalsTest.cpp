#include "tests/orim-standin/Support.h"

namespace kestrune::workbench {
namespace {

/// Each case tries one thing that the host refuses, against a package with two elements, "Upper" and "Lower"
/// below it, and a second package.
struct Scene {
  OrimModel& Model;
  Object Repository;
  std::int32_t PackageId, PackageElementId, OtherPackageId, OtherElementId;
  Object Upper, Lower, Tag;  // Tag belongs to Upper

  std::int32_t UpperId() const { return Upper.Get(u"ElementID").ToInt(); }
  std::int32_t LowerId() const { return Lower.Get(u"ElementID").ToInt(); }
  Object Package() const { return Repository.Call(u"PackageByID", {PackageId}).ToObject(); }
  Object OwnElement() const { return Package().Get(u"Element").ToObject(); }
  Object Members(const char16_t* collection) const { return Package().Get(collection).ToObject(); }
  Object New(const char16_t* collection, const char16_t* type) const {
    return Members(collection).Call(u"AddNew", {u"New", type}).ToObject();
  }
};

void PutAndSave(const Object& object, const char16_t* member, Variant value) {
  object.Put(member, std::move(value));
  object.Call(u"Save");
}

struct Refusal {
  const char* Name;
  void (*Try)(const Scene& s);
  const char* Reason;  // what the description has to contain
};

const Refusal kRefusals[] = {
    {"TaggedValueOf256", [](const Scene& s) { PutAndSave(s.Tag, u"Value", Text(256, u'x')); },
     "longer than 255"},
    {"NameOf256", [](const Scene& s) { PutAndSave(s.Upper, u"Name", Text(256, u'x')); }, "too long"},
    {"PackageNameOf256", [](const Scene& s) { PutAndSave(s.Package(), u"Name", Text(256, u'x')); },
     "too long"},
    {"MissingPackage", [](const Scene& s) { PutAndSave(s.Upper, u"PackageID", 999); },
     "Package 999 does not exist"},
    {"MissingParent", [](const Scene& s) { PutAndSave(s.Upper, u"ParentID", 999); },
     "element 999 does not exist"},
    {"ItsOwnParent", [](const Scene& s) { PutAndSave(s.Upper, u"ParentID", s.UpperId()); }, "lies below"},
    {"CircleOfParents", [](const Scene& s) { PutAndSave(s.Upper, u"ParentID", s.LowerId()); }, "lies below"},
    {"NumberThatIsNone", [](const Scene& s) { PutAndSave(s.Upper, u"TreePos", u"x"); }, "Type mismatch"},
    {"LockedElement",
     [](const Scene& s) {
       s.Model.SetLocked(s.UpperId(), true);
       PutAndSave(s.Upper, u"Name", u"x");
     },
     "is locked"},
    {"TaggedValueOfLockedElement",
     [](const Scene& s) {
       s.Model.SetLocked(s.UpperId(), true);
       PutAndSave(s.Tag, u"Value", u"x");
     },
     "is locked"},
    {"DeletingFromLockedElement",
     [](const Scene& s) {
       s.Model.SetLocked(s.UpperId(), true);
       s.Upper.Get(u"TaggedValues").ToObject().Call(u"DeleteAt", {0, true});
     },
     "is locked"},
    {"NewElementInLockedPackage",
     [](const Scene& s) {
       s.Model.SetLocked(s.PackageElementId, true);
       s.New(u"Elements", u"Requirement").Call(u"Save");
     },
     "is locked"},
    {"NewPackageInLockedPackage",
     [](const Scene& s) {
       s.Model.SetLocked(s.PackageElementId, true);
       s.New(u"Packages", u"").Call(u"Save");
     },
     "is locked"},
    {"LockedPackage",
     [](const Scene& s) {
       s.Model.SetLocked(s.PackageElementId, true);
       PutAndSave(s.Package(), u"Flags", u"");
     },
     "is locked"},
    {"MovingOutOfLockedPackage",
     [](const Scene& s) {
       s.Model.SetLocked(s.PackageElementId, true);
       PutAndSave(s.Upper, u"PackageID", s.OtherPackageId);
     },
     "is locked"},
    {"MovingIntoLockedPackage",
     [](const Scene& s) {
       s.Model.SetLocked(s.OtherElementId, true);
       PutAndSave(s.Upper, u"PackageID", s.OtherPackageId);
     },
     "is locked"},
    {"RenamingAPackageByItsElement", [](const Scene& s) { PutAndSave(s.OwnElement(), u"Name", u"x"); },
     "without the package"},
    {"MovingAPackageByItsElement",
     [](const Scene& s) { PutAndSave(s.OwnElement(), u"PackageID", s.OtherPackageId); },
     "without the package"},
    {"NoElementWithThatId", [](const Scene& s) { s.Repository.Call(u"ElementByID", {999}); },
     "does not exist"},
    {"NoPackageWithThatId", [](const Scene& s) { s.Repository.Call(u"PackageByID", {999}); },
     "does not exist"},
    {"NoPackageWithThatGuid", [](const Scene& s) { s.Repository.Call(u"PackageByGuid", {u"{}"}); },
     "does not exist"},
    {"NameIsExact", [](const Scene& s) { s.Members(u"Elements").Call(u"GetByName", {u"upper"}); }, "no item"},
    {"IndexPastTheEnd", [](const Scene& s) { s.Members(u"Elements").Call(u"GetAt", {2}); }, "no item 2"},
    {"NegativeIndex", [](const Scene& s) { s.Members(u"Elements").Call(u"GetAt", {-1}); }, "no item -1"},
    {"DeletingElements",
     [](const Scene& s) {
       s.Members(u"Elements").Call(u"DeleteAt", {0, true});
     },
     "not supported"},
    {"PackageAsElement", [](const Scene& s) { s.New(u"Elements", u"Package"); }, "no elements of type"},
    {"PackageOfAnotherType", [](const Scene& s) { s.New(u"Packages", u"View"); }, "no packages of type"},
    {"TagOfUnsavedElement", [](const Scene& s) { s.New(u"Elements", u"Requirement").Get(u"TaggedValues"); },
     "once it is saved"},
    {"ElementOfUnsavedPackage", [](const Scene& s) { s.New(u"Packages", u"").Get(u"Element"); },
     "not saved yet"},
    {"WritingAnId", [](const Scene& s) { s.Upper.Put(u"ElementID", 5); }, "cannot be used in this way"},
    {"OtherFormats",
     [](const Scene& s) {
       s.Repository.Call(u"NotesFromFormat", {u"HTML", u"<b>"});
     },
     "cannot be converted"},
};

class HostRefuses : public ModelTest, public testing::WithParamInterface<Refusal> {
 protected:
  Scene MakeScene() {
    const std::int32_t other_id = model.AddPackage(0, u"Other");
    Scene scene{model,
                repository,
                package_id,
                Package().Get(u"Element").ToObject().Get(u"ElementID").ToInt(),
                other_id,
                model.FindPackage(u"Other").ElementId,
                AddElement(u"Upper"),
                AddElement(u"Lower"),
                {}};
    PutAndSave(scene.Lower, u"ParentID", scene.UpperId());
    scene.Tag = NewTaggedValue(scene.Upper, u"Tag", u"v");
    scene.Tag.Call(u"Save");
    return scene;
  }

  /// All that is stored, but for the locks.
  std::string Content() const {
    std::string content;
    for (const char16_t* sql : {u"SELECT Package_ID, Name, Parent_ID, Element_ID, Flags FROM t_package",
                                u"SELECT Object_ID, Package_ID, ParentID, Name, TPos FROM t_object",
                                u"SELECT * FROM t_objectproperties"})
      content += ToUtf8(repository.Call(u"Query", {sql}).ToText());
    return content;
  }
};

TEST_P(HostRefuses, AndStoresNothing) {
  const Scene scene = MakeScene();
  const std::string before = Content();
  const long long writes = model.Counters().Writes();
  const std::string failure = FailureOf([&] { GetParam().Try(scene); });
  EXPECT_NE(failure.find(GetParam().Reason), std::string::npos) << "it said: " << failure;
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(model.Counters().Writes(), writes);
}

INSTANTIATE_TEST_SUITE_P(Cases, HostRefuses, testing::ValuesIn(kRefusals),
                         [](const auto& info) { return info.param.Name; });

TEST_F(ModelTest, WhatIsJustWithinTheLimitsIsStored) {
  Object element = AddElement(u"E");
  PutAndSave(element, u"Name", Text(255, u'x'));
  AddTaggedValue(element, u"Tag", Text(255, u'x'));
  Object tag = TaggedValues(element).Call(u"GetAt", {0}).ToObject();
  PutAndSave(tag, u"Notes", Text(100'000, u'x'));
  EXPECT_EQ(TaggedValues(element).Call(u"GetAt", {0}).ToObject().Get(u"Notes").ToText().size(), 100'000u);
}

TEST_F(ModelTest, AnUnlockedElementIsWrittenAgain) {
  Object element = AddElement(u"E");
  const std::int32_t id = element.Get(u"ElementID").ToInt();
  model.SetLocked(id, true);
  EXPECT_TRUE(ElementOf(id).Get(u"Locked").ToBool());
  model.SetLocked(id, false);
  PutAndSave(element, u"Name", u"x");
  EXPECT_EQ(ElementOf(id).Get(u"Name").ToText(), u"x");
}

}  // namespace
}  // namespace kestrune::workbench
