// What the tests of the options share: a linked package, a DOORS that is ready, and short ways to set up and
// to look.
#pragma once

#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "options/Options.h"
#include "tests/options/Rules.h"
#include "tests/support/SimulatedDoors.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::testing {

inline Text Joined(const Lines& lines) {
  Text text;
  for (const Text& line : lines) text.append(line).append(kCrLf);
  return text;
}

class OptionsTest : public ::testing::Test, public TestPlatform, public TestHost {
 protected:
  OptionsTest() {
    app->module = u"/Demo/Requirements";
    desktop.AddWindow({u"DOORSWindow", 0x04CF0000});
    objects.objects[u"Doors.Application"] = app->AsObject();
    SaveLinkFile(platform, Guid(), app->module);
  }

  /// The text of a record with these rule lines.
  static Text Record(const Lines& rules) {
    return LoadResText(text::kRecordHelp) + u"\r\n\r\n" + Joined(rules);
  }
  void Load(Options& options, const Lines& rules) {
    StoreRecord(Record(rules));
    ASSERT_TRUE(options.Load(package));
  }

  orim::Package package = Package();
  std::shared_ptr<SimulatedDoors> app = std::make_shared<SimulatedDoors>(folder.File(u"export.xml"));
  Doors doors{platform};
};

}  // namespace kestrune::testing
