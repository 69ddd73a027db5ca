// The platform that a test runs on: a desktop with a scripted
// user, folders of its own, objects as the test makes them.
#pragma once

#include <gtest/gtest.h>
#include <map>
#include <random>

#include "platform/Platform.h"
#include "standins/desktop/FixedFolders.h"
#include "standins/desktop/ScriptedDesktop.h"

namespace kestrune::testing {

/// A folder that is there for one test.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("kestrune-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TempFolder() { std::filesystem::remove_all(path_); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  Text Path() const { return FromPath(path_); }
  Text File(TextView name) const { return FromPath(path_ / ToPath(name)); }

 private:
  std::filesystem::path path_;
};

/// Makes the objects that a test has put under their ProgIDs.
class TestObjects : public ObjectFactory {
 public:
  Object Create(TextView prog_id) override {
    const auto found = objects.find(prog_id);
    if (found == objects.end())
      throw AutomationError(error::kNoSuchClass, u"test", Text(u"No class ").append(prog_id));
    return found->second;
  }
  std::map<Text, Object, std::less<>> objects;
};

struct TestPlatform {
  TempFolder folder;
  standins::ScriptedDesktop desktop{[](const std::string& what) { ADD_FAILURE() << what; }};
  standins::FixedFolders folders{folder.Path()};
  TestObjects objects;
  Platform platform{desktop, folders, objects};
};

}  // namespace kestrune::testing

namespace kestrune {
/// How GoogleTest shows values in a failure.
inline void PrintTo(const Variant& value, std::ostream* out) {
  *out << (value.IsEmpty() ? "Empty" : value.IsObject() ? "an object" : ToUtf8(value.ToText()));
}
}  // namespace kestrune
