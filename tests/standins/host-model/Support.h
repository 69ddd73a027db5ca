// What the tests of the stand-in host share: a model in memory with a package in it.
#pragma once

#include <filesystem>

#include "platform/Files.h"
#include "standins/host-model/OrimModel.h"
#include "tests/support/FailureOf.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::standins {

using kestrune::testing::FailureOf;
using kestrune::testing::TempFolder;

inline std::filesystem::path operator/(const TempFolder& folder, TextView name) {
  return ToPath(folder.File(name));
}

inline void PutAndSave(const Object& object, const char16_t* member, Variant value) {
  object.Put(member, std::move(value));
  object.Call(u"Save");
}

class ModelTest : public ::testing::Test {
 protected:
  Object Package() const { return repository.Call(u"PackageByID", {package_id}).ToObject(); }
  Object ElementOf(std::int32_t id) const { return repository.Call(u"ElementByID", {id}).ToObject(); }

  Object AddElement(const char16_t* name) {
    Object element = Package().Get(u"Elements").ToObject().Call(u"AddNew", {name, u"Requirement"}).ToObject();
    element.Call(u"Save");
    return element;
  }
  static std::int32_t IdOf(const Object& element) { return element.Get(u"ElementID").ToInt(); }

  static Object TaggedValues(const Object& element) { return element.Get(u"TaggedValues").ToObject(); }
  static Object AddTaggedValue(const Object& element, Variant name, Variant value) {
    Object tag = TaggedValues(element).Call(u"AddNew", {std::move(name), std::move(value)}).ToObject();
    tag.Call(u"Save");
    return tag;
  }
  static Text StoredValue(const Object& element, const char16_t* tag) {
    return TaggedValues(element).Call(u"GetByName", {tag}).ToObject().Get(u"Value").ToText();
  }

  OrimModel model = OrimModel::Create(":memory:");
  Object repository = model.Repository();
  std::int32_t package_id = model.AddPackage(model.AddPackage(0, u"Model"), u"Requirements");
};

}  // namespace kestrune::standins
