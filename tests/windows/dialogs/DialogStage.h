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
#include "standins/desktop/FixedFolders.h"
#include "tests/options/SimulatedPackage.h"
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

/// Answers each script as the test says.
class PreparedDoors : public StandInObject<PreparedDoors> {
 public:
  static constexpr const char16_t* kClassName = u"PreparedDoors";
  std::function<Text(const Text& script)> answer = [](const Text&) { return Text(); };

  static const Members& Table() {
    static const Members table = {
        {u"Result",
         {.get = [](PreparedDoors& doors) { return Variant(doors.result_); },
          .put = [](PreparedDoors& doors, const Variant& value) { doors.result_ = value.ToText(); }}},
        {u"RunStr",
         {.call =
              [](PreparedDoors& doors, const Args& args) {
                doors.result_ = doors.answer(args[0].ToText());
                return Variant();
              },
          .arg_count = 1}},
    };
    return table;
  }

 private:
  Text result_;
};

struct DialogStage : private ObjectFactory {
  /// The package's record gets these rules.
  void StoreRules(const std::vector<Text>& rules);

  RecordingDesktop desktop;
  standins::FixedFolders folders{FromPath(std::filesystem::temp_directory_path() / "kestrune-dialogs")};
  Platform platform{desktop, folders, *this};
  std::shared_ptr<PreparedDoors> app = std::make_shared<PreparedDoors>();
  Doors doors{platform};
  PackageModel model;
  orim::Package package{Object(std::make_shared<SimulatedPackage>(model))};

 private:
  Object Create(TextView) override { return Object(app); }
};

}  // namespace kestrune::testing
