// What the tests of the options share: a linked package, a DOORS that is ready, and short ways to set up and
// to look.
#pragma once

#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "options/Options.h"
#include "tests/options/Rules.h"
#include "tests/options/SimulatedPackage.h"
#include "tests/support/SimulatedDoors.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::testing {

inline Text Joined(const Lines& lines) {
  Text text;
  for (const Text& line : lines) text.append(line).append(kCrLf);
  return text;
}

class OptionsTest : public ::testing::Test, public TestPlatform {
 protected:
  OptionsTest() {
    app->module = u"/Demo/Requirements";
    desktop.AddWindow({u"DOORSWindow", 0x04CF0000});
    objects.objects[u"Doors.Application"] = app->AsObject();
    SaveLinkFile(platform, model.guid, app->module);
  }

  /// The text of a record with these rule lines.
  static Text Record(const Lines& rules) {
    return LoadResText(text::kRecordHelp) + u"\r\n\r\n" + Joined(rules);
  }
  void Store(const Text& record) {
    model.tags.push_back(std::make_shared<PackageModel::Tag>(u"DoorsConnection", u"<memo>", record));
  }
  Text Stored() {
    const auto* tag = model.Find(u"DoorsConnection");
    return tag ? tag->notes : u"no record";
  }
  void Load(Options& options, const Lines& rules) {
    model.tags.clear();
    Store(Record(rules));
    ASSERT_TRUE(options.Load(package));
  }

  PackageModel model;
  orim::Package package{Object(std::make_shared<SimulatedPackage>(model))};
  orim::Repository repository;
  std::shared_ptr<SimulatedDoors> app = std::make_shared<SimulatedDoors>(folder.File(u"export.xml"));
  Doors doors{platform};
};

}  // namespace kestrune::testing
