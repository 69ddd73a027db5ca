// The add-in between its two neighbours: a model of its own, a DOORS with its database that runs the real
// scripts, and a user who is as patient as the test needs.
#pragma once

#include <algorithm>

#include "addin/OrimDoors.h"
#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "doors/frmConnect.h"
#include "doors/frmConnectProgress.h"
#include "import/frmImport.h"
#include "options/frmOptions.h"
#include "standins/doors-database/DoorsStandIn.h"
#include "standins/doors-database/SimulatedDoorsWindows.h"
#include "standins/doors-database/xml/DomDocument.h"
#include "tests/support/TestHost.h"
#include "tests/workbench/Attendant.h"
#include "tests/workbench/DoorsModule.h"

namespace kestrune::testing {

/// What one transfer did, as its user saw it and as the host counted it.
struct ImportRun {
  std::vector<Text> lines;
  std::vector<Text> messages;
  long long writes = 0;
  long long calls = 0;
  bool completed = false;

  bool HasLine(TextView part) const {
    return std::any_of(lines.begin(), lines.end(),
                       [part](const Text& line) { return line.find(part) != Text::npos; });
  }
};

class EndToEnd : public TestHost, private ObjectFactory {
 public:
  explicit EndToEnd(const std::filesystem::path& model_file = ":memory:") : TestHost(model_file) {
    desktop.UseForm<frmImport>([this](frmImport& form) { WatchImport(form); });
    desktop.UseForm<frmOptions>([this](frmOptions& form) { ChooseOptions(form); });
    desktop.UseForm<frmConnectProgress>([](frmConnectProgress& form) { form.cmdCancel.Press(); });
    add_in.Orim_Connect(repository);
    add_in.Orim_OnPostInitialized(repository);
  }

  /// Links the package, as the host's connect command does, to a module that is in DOORS' list.
  void Link(const Text& module_path) {
    desktop.UseForm<frmConnect>([&](frmConnect& form) {
      desktop.Tick();
      const auto& items = form.lstModules.Items();
      form.lstModules.ClickItem(
          static_cast<std::size_t>(std::find(items.begin(), items.end(), module_path) - items.begin()));
      form.cmdOK.Press();
    });
    EXPECT_EQ(add_in.Plexa_Connect(repository, package_id, Guid()), -1);
  }

  /// Opens the options and applies `mapping` and `view`, as every options dialog does that comes up.
  void EditOptions() { Click(text::kMenuOptions); }

  void Click(int item) { add_in.Orim_MenuClick(repository, u"-DOORS", LoadResText(item)); }

  ImportRun Import(int item = text::kMenuImport) {
    run_ = {};
    desktop.TakeMessages();
    model.Counters().Reset();
    Click(item);
    run_.writes = model.Counters().Writes();
    run_.calls = model.Counters().Calls();
    for (const Message& message : desktop.TakeMessages()) run_.messages.push_back(message.Body);
    return run_;
  }

  TempFolder folder;
  Attendant desktop;
  standins::FixedFolders folders{folder.Path()};
  standins::DoorsDatabase database = standins::DoorsDatabase::Create(":memory:");
  standins::DoorsStandIn doors{database, folders.Temp(), *this,
                               std::make_unique<standins::SimulatedDoorsWindows>(desktop)};
  Platform platform{desktop, folders, *this};
  OrimDoors add_in{platform};

  std::vector<Text> mapping;                     // rules; none leaves them as they are
  Text view{u"Standard view"};                   // that the import is restricted to
  std::function<Object(const Object&)> between;  // what the add-in gets instead of DOORS' automation object

 private:
  Object Create(TextView prog_id) override {
    if (prog_id == u"Doors.Application") return between ? between(doors.Application()) : doors.Application();
    if (prog_id == u"MSXML2.DOMDocument") return standins::MakeDomDocument();
    throw AutomationError(error::kNoSuchClass, u"test", Text(u"No class ").append(prog_id));
  }

  void WatchImport(frmImport& form) {
    EXPECT_FALSE(form.cmdClose.Enabled());
    desktop.Tick();
    run_.lines = form.List1.Items();
    if (!form.IsOpen()) return;  // it has closed itself
    run_.completed = form.List1.SelectedText() == LoadResText(text::kImportComplete);
    EXPECT_TRUE(form.cmdClose.Enabled()) << "the window cannot be closed after its run";
    if (form.cmdClose.Enabled()) form.cmdClose.Press();
  }

  void ChooseOptions(frmOptions& form) {
    if (!mapping.empty()) {
      Text lines = LoadResText(text::kTemplateHeader);
      for (const Text& rule : mapping) lines.append(kCrLf).append(rule);
      desktop.SetClipboardText(lines);
      form.cmdMappings.Press();
      form.mnuMappings.Choose(form.mnuMappingsPaste);
    }
    if (form.cmbViews.Value() != view) {
      form.cmbViews.Drop();
      const auto& views = form.cmbViews.Items();
      form.cmbViews.Choose(
          static_cast<std::size_t>(std::find(views.begin(), views.end(), view) - views.begin()));
    }
    form.cmdOK.Press();
  }

  ImportRun run_;
};

}  // namespace kestrune::testing
