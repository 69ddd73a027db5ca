// A package that is linked to a module of two objects, imported once.
#pragma once

#include "tests/workbench/PackageState.h"

namespace kestrune::testing {

struct LinkedPackage : ::testing::Test, EndToEnd {
  LinkedPackage() {
    module.AddObject(1, 0, 1);
    module.AddObject(2, 1, 1);
    mapping = {u"Absolute Number --> (Tagged Value)", u"Object Heading --> Alias"};
    Link(module.Path());
    Import();
    mapping.clear();
    desktop.TakeMessages();
  }

  std::vector<Text> Messages() {
    std::vector<Text> bodies;
    for (const Message& message : desktop.TakeMessages()) bodies.push_back(message.Body);
    return bodies;
  }

  bool HasLinkFile() const { return IsFile(GetLinkFilePath(platform, Guid())); }
  bool HasRecord() const { return StoredRecord() != u"no record"; }

  DoorsModule module{database, u"M"};
};

inline constexpr const char16_t* kLockedMessage = u"Package locked. Cannot proceed with operation.";

}  // namespace kestrune::testing
