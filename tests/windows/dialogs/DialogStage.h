// What the dialogs are shown with: the real desktop, whose help is written down; a DOORS of prepared
// answers with a main window; a linked package.
#pragma once

#include <filesystem>

#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "common/resources/dialogs.h"
#include "doors/Doors.h"
#include "options/Options.h"
#include "platform/Files.h"
#include "platform/windows/Win32Desktop.h"
#include "tests/support/SimulatedDoors.h"
#include "tests/support/TestHost.h"
#include "tests/windows/dialogs/DoorsWindow.h"
#include "tests/windows/dialogs/Person.h"

namespace kestrune::testing {

class RecordingDesktop : public Win32Desktop {
 public:
  void ShowHelp(int context) override {
    help_shown.push_back(context);
    if (opens_help) Win32Desktop::ShowHelp(context);
  }
  std::vector<int> help_shown;
  bool opens_help = false;
};

struct DialogStage : TestHost, private ObjectFactory {
  DialogStage() { app->answer_instead = u""; }
  /// The package's record gets these rules.
  void StoreRules(const std::vector<Text>& rules) const;
  Text StoredRules() const { return Package().Element().TaggedValues().Find(u"DoorsConnection").Notes(); }

  RecordingDesktop desktop;
  standins::FixedFolders folders{FromPath(std::filesystem::temp_directory_path() / "kestrune-dialogs")};
  Platform platform{desktop, folders, *this};
  std::shared_ptr<SimulatedDoors> app = std::make_shared<SimulatedDoors>();
  Doors doors{platform};

 private:
  Object Create(TextView) override { return Object(app); }
};

class DialogTest : public ::testing::Test, protected DialogStage {};

}  // namespace kestrune::testing
