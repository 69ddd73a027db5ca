// What the tests of the stand-in host share: a model in memory with a package in it, and how failures are
// looked at.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

#include "workbench/orim/OrimModel.h"

namespace kestrune::workbench {

/// The description of the AutomationError that `action` throws; "" when it throws nothing.
template <typename Action>
std::string FailureOf(Action action) {
  try {
    action();
    return "";
  } catch (const AutomationError& e) {
    return ToUtf8(e.Description);
  }
}

/// A folder of the test's own that goes with it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "orim-standin-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::filesystem::path operator/(const char* name) const { return path_ / name; }
  std::ptrdiff_t FileCount() const {
    return std::distance(std::filesystem::directory_iterator(path_), std::filesystem::directory_iterator());
  }

 private:
  std::filesystem::path path_;
};

class ModelTest : public testing::Test {
 protected:
  Object Package() const { return repository.Call(u"PackageByID", {package_id}).ToObject(); }
  Object ElementOf(std::int32_t id) const { return repository.Call(u"ElementByID", {id}).ToObject(); }

  Object AddElement(const char16_t* name) {
    Object element = Package().Get(u"Elements").ToObject().Call(u"AddNew", {name, u"Requirement"}).ToObject();
    element.Call(u"Save");
    return element;
  }
  std::int32_t AddElementId(const char16_t* name) { return AddElement(name).Get(u"ElementID").ToInt(); }

  static Object TaggedValues(const Object& element) { return element.Get(u"TaggedValues").ToObject(); }
  static Object NewTaggedValue(const Object& element, Variant name, Variant value) {
    return TaggedValues(element).Call(u"AddNew", {std::move(name), std::move(value)}).ToObject();
  }
  static void AddTaggedValue(const Object& element, Variant name, Variant value) {
    NewTaggedValue(element, std::move(name), std::move(value)).Call(u"Save");
  }

  OrimModel model = OrimModel::Create(":memory:");
  Object repository = model.Repository();
  std::int32_t package_id = model.AddPackage(model.AddPackage(0, u"Model"), u"Requirements");
};

}  // namespace kestrune::workbench
