// Shows one dialog with content as it is in use, for a picture to be taken:
//   dialog-gallery DIALOG FILE
// When the dialog stands, its place on the screen is written into FILE, as "800x600+10+20"; when FILE goes,
// the dialog is closed.
#include <fstream>
#include <iostream>

#include "addin/frmAbout.h"
#include "doors/frmConnect.h"
#include "doors/frmConnectProgress.h"
#include "import/frmImport.h"
#include "options/frmMapWizard.h"
#include "options/frmOptions.h"
#include "platform/Files.h"
#include "tests/windows/dialogs/DialogStage.h"

namespace kestrune::testing {
namespace {

const Text kModule = u"/Vehicle Platform/Requirements/System Requirements";

struct Picture {
  const char* name;
  const char16_t* title;
  std::function<void(DialogStage&)> show;
  std::function<void(const Screen&)> person = [](const Screen&) {};  // does this before the picture is taken
};

void PrepareOptions(DialogStage& stage) {
  stage.StoreRules({u"Object Number [: Object Heading] --> Name", u"Object Text --> Notes",
                    u"Created By --> (Tagged Value)", u"Created On --> (Tagged Value)",
                    u"Last Modified On --> (Tagged Value)", u"Priority --> Priority", u"Rationale",
                    u"Verification Method", u"Safety Integrity Level", u"Release", u"Supplier Status",
                    u"Object Short Text"});
}

void ShowOptions(DialogStage& stage) {
  PrepareOptions(stage);
  frmOptions(stage.doors).ShowOptions(orim::Repository(), stage.package);
}

void ShowWizard(DialogStage& stage, bool combine) {
  PrepareOptions(stage);
  Options options(stage.doors);
  options.Load(stage.package);
  frmMapWizard(stage.desktop).DoWizard(options, options.FindAttribute(u"Rationale"), combine);
}

void ShowImport(DialogStage& stage) {
  frmImport form(stage.doors);
  form.Timer1.Tick = [&form] {
    form.Timer1.SetEnabled(false);
    for (const char16_t* line : {u"Connecting to DOORS", u"Checking contents of DOORS module",
                                 u"Checking Orim package contents", u"Comparing...", u"   SR-118: New"})
      form.Progress(line);
    form.ProgressModify(u"SR-12", u"Name: The brake shall hold the vehicle on a slope of 20 %.");
    form.ProgressModify(u"SR-31", u"Notes");
    form.ProgressModify(u"SR-31", u"Priority: High");
    for (const char16_t* line :
         {u"   SR-77: Archived", u"Updating Hierarchy...", u"Updating Orim UI", u"*** Import Complete ***"})
      form.Progress(line);
    form.cmdClose.SetEnabled(true);
  };
  form.Transfer(orim::Repository(), 0);
}

void ShowBadExport(DialogStage& stage) {
  const Text report =
      u"The export file is not well formed: line 118, position 27\r\n(Error Code: -2147220503)";
  stage.desktop.Show(
      {.Body = FormatResText(text::kUnexpectedData, {report, LoadResText(text::kSupportAddress)}),
       .Title = LoadResText(text::kTitle),
       .Icon = Icon::kStop,
       .HelpContext = 6740});
}

void Next(const Screen& wizard) {
  wizard.Key(VK_RETURN);
}

const Picture kPictures[] = {
    {"frmAbout", u"About",
     [](DialogStage& stage) {
       frmAbout form;
       stage.desktop.ShowModal(form);
     }},
    {"frmConnectProgress", u"Connect to Doors",
     [](DialogStage& stage) { frmConnectProgress(stage.platform).GetDoors(); },
     [](const Screen& progress) {
       progress.Await("its text", [&] { return !progress.TextAt(ID_lblStatus).empty(); });
     }},
    {"frmConnect", u"DOORS Connection",
     [](DialogStage& stage) {
       const DoorsWindow main_window(DoorsWindow::kMain, true);
       frmConnect(stage.doors).ShowIt();
     },
     [](const Screen& connect) {
       connect.Await("the modules", [&] { return connect.Ask(ID_lstModules, LB_GETCURSEL) == 0; });
     }},
    {"frmInput", u"Manual DOORS Connection",
     [](DialogStage& stage) {
       stage.desktop.AskText(LoadResText(text::kManualConnectionTitle),
                             LoadResText(text::kManualConnectionPrompt));
     },
     [](const Screen& box) { box.Type(u"/Vehicle Platform/Requirements"); }},
    {"frmOptions", u"Options", ShowOptions},
    {"frmMapWizard-attribute", u"Configure attribute mapping",
     [](DialogStage& stage) { ShowWizard(stage, true); }},
    {"frmMapWizard-separator", u"Configure attribute mapping",
     [](DialogStage& stage) { ShowWizard(stage, true); }, Next},
    {"frmMapWizard-target", u"Configure attribute mapping",
     [](DialogStage& stage) { ShowWizard(stage, false); }},
    {"frmImport", u"Import Progress", ShowImport,
     [](const Screen& import) { import.AwaitEnabled(ID_cmdClose); }},
    {"message-box", u"Kestrune Link", ShowBadExport}};

/// Stays until the picture has been taken.
void Pose(const Screen& dialog, const std::filesystem::path& file) {
  Sleep(500);  // buttons fade into their states
  RECT at = {};
  GetWindowRect(dialog.Window(), &at);
  std::ofstream(file) << at.right - at.left << 'x' << at.bottom - at.top << '+' << at.left << '+' << at.top
                      << '\n';
  dialog.Await("the picture is not taken", [&] { return !std::filesystem::exists(file); });
  dialog.CloseBox();
}

int Show(const Picture& picture, const std::filesystem::path& file) {
  DialogStage stage;
  stage.app->Answer = [](const Text&) {
    return kModule +
           u"\n/Vehicle Platform/Requirements/Stakeholder Requirements\n/Vehicle Platform/Tests/System "
           u"Tests\n";
  };
  stage.model.Name = u"System Requirements";
  stage.model.Guid = u"{gallery}";
  SaveLinkFile(stage.platform, stage.model.Guid, kModule);
  WithPerson(
      [&] {
        const Screen dialog(picture.title);
        picture.person(dialog);
        Pose(dialog, file);
      },
      [&] { picture.show(stage); });
  return 0;
}

}  // namespace
}  // namespace kestrune::testing

int main(int count, char** arguments) {
  using namespace kestrune::testing;
  CoInitialize(nullptr);        // as a host does, before it loads an add-in
  SetCaretBlinkTime(INFINITE);  // two pictures of one dialog are the same
  for (const Picture& picture : kPictures)
    if (count == 3 && std::string(arguments[1]) == picture.name) return Show(picture, arguments[2]);
  std::cerr << "dialog-gallery DIALOG FILE, with DIALOG one of:";
  for (const Picture& picture : kPictures) std::cerr << ' ' << picture.name;
  std::cerr << '\n';
  return 2;
}
