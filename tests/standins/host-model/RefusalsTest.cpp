#include "tests/standins/host-model/Support.h"

namespace kestrune::standins {
namespace {

/// Each case tries one thing that the host refuses, against a package with two elements, "Upper" and "Lower"
/// below it, and a second package.
struct Scene {
  OrimModel& model;
  Object package, upper, lower, tag;  // the tagged value is of "Upper"
  std::int32_t other_package_id, other_element_id;

  static std::int32_t IdOf(const Object& element) { return element.Get(u"ElementID").ToInt(); }
  void Lock(const Object& element) const { model.SetLocked(IdOf(element), true); }
  void LockPackage() const { Lock(package.Get(u"Element").ToObject()); }
  Object New(const char16_t* collection, const char16_t* type) const {
    return package.Get(collection).ToObject().Call(u"AddNew", {u"New", type}).ToObject();
  }
};

struct Refusal {
  const char* reason;  // what the description has to contain
  void (*attempt)(const Scene& s);
};

const Text k256(256, u'x');

const Refusal kRefusals[] = {
    {"longer than 255", [](const Scene& s) { PutAndSave(s.tag, u"Value", k256); }},
    {"too long", [](const Scene& s) { PutAndSave(s.upper, u"Name", k256); }},
    {"Package 999 does not exist", [](const Scene& s) { PutAndSave(s.upper, u"PackageID", 999); }},
    {"element 999 does not exist", [](const Scene& s) { PutAndSave(s.upper, u"ParentID", 999); }},
    {"lies below", [](const Scene& s) { PutAndSave(s.upper, u"ParentID", Scene::IdOf(s.upper)); }},
    {"lies below", [](const Scene& s) { PutAndSave(s.upper, u"ParentID", Scene::IdOf(s.lower)); }},
    {"Type mismatch", [](const Scene& s) { PutAndSave(s.upper, u"TreePos", u"x"); }},
    {"is locked", [](const Scene& s) { s.Lock(s.upper), PutAndSave(s.upper, u"Name", u"x"); }},
    {"is locked", [](const Scene& s) { s.Lock(s.upper), PutAndSave(s.tag, u"Value", u"x"); }},
    {"is locked",
     [](const Scene& s) {
       s.Lock(s.upper);
       s.upper.Get(u"TaggedValues").ToObject().Call(u"DeleteAt", {0, true});
     }},
    {"is locked", [](const Scene& s) { s.LockPackage(), s.New(u"Elements", u"Requirement").Call(u"Save"); }},
    {"is locked", [](const Scene& s) { s.LockPackage(), s.New(u"Packages", u"").Call(u"Save"); }},
    {"is locked", [](const Scene& s) { s.LockPackage(), PutAndSave(s.package, u"Flags", u""); }},
    {"is locked",
     [](const Scene& s) { s.LockPackage(), PutAndSave(s.upper, u"PackageID", s.other_package_id); }},
    {"is locked",
     [](const Scene& s) {
       s.model.SetLocked(s.other_element_id, true);
       PutAndSave(s.upper, u"PackageID", s.other_package_id);
     }},
    {"once it is saved", [](const Scene& s) { s.New(u"Elements", u"Requirement").Get(u"TaggedValues"); }},
    {"no item 2", [](const Scene& s) { s.package.Get(u"Elements").ToObject().Call(u"GetAt", {2}); }},
    {"cannot be used in this way", [](const Scene& s) { s.upper.Put(u"ElementID", 5); }},
};

class HostRefuses : public ModelTest, public ::testing::WithParamInterface<Refusal> {
 protected:
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
  const Object upper = AddElement(u"Upper"), lower = AddElement(u"Lower");
  PutAndSave(lower, u"ParentID", IdOf(upper));
  const std::int32_t other_id = model.AddPackage(0, u"Other");
  const Scene scene{model,
                    Package(),
                    upper,
                    lower,
                    AddTaggedValue(upper, u"Tag", u"v"),
                    other_id,
                    model.FindPackage(u"Other").element_id};
  const std::string before = Content();
  const long long writes = model.Counters().Writes();
  const std::string failure = FailureOf([&] { GetParam().attempt(scene); });
  EXPECT_NE(failure.find(GetParam().reason), std::string::npos) << "it said: " << failure;
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(model.Counters().Writes(), writes);
}

INSTANTIATE_TEST_SUITE_P(Cases, HostRefuses, ::testing::ValuesIn(kRefusals));

TEST_F(ModelTest, WhatIsJustWithinTheLimitsIsStored) {
  const Object element = AddElement(u"E");
  PutAndSave(element, u"Name", Text(255, u'x'));
  PutAndSave(AddTaggedValue(element, u"Tag", Text(255, u'x')), u"Notes", Text(100'000, u'x'));
  const Object tag = TaggedValues(element).Call(u"GetAt", {0}).ToObject();
  EXPECT_EQ(tag.Get(u"Notes").ToText().size(), 100'000u);
  model.SetLocked(IdOf(element), true);
  EXPECT_TRUE(ElementOf(IdOf(element)).Get(u"Locked").ToBool());
  model.SetLocked(IdOf(element), false);
  PutAndSave(element, u"Name", u"x");
}

}  // namespace
}  // namespace kestrune::standins
