#include "tests/windows/dialogs/EveryDialog.h"

#include "addin/frmAbout.h"
#include "common/LinkFile.h"
#include "doors/frmConnect.h"
#include "doors/frmConnectProgress.h"
#include "import/frmImport.h"
#include "options/frmMapWizard.h"
#include "options/frmOptions.h"

namespace kestrune::testing {

namespace {

const Text kModule = u"/Vehicle Platform/Requirements/System Requirements";

void ShowAbout(DialogStage& stage) {
  frmAbout form;
  stage.desktop.ShowModal(form);
}

void ShowConnectProgress(DialogStage& stage) {
  frmConnectProgress(stage.platform).GetDoors();
}

void ShowConnect(DialogStage& stage) {
  const DoorsWindow main_window(DoorsWindow::kMain, true);
  frmConnect(stage.doors).ShowIt();
}

void ShowInput(DialogStage& stage) {
  stage.desktop.AskText(LoadResText(text::kManualConnectionTitle),
                        LoadResText(text::kManualConnectionPrompt));
}

void PrepareOptions(DialogStage& stage) {
  stage.StoreRules({u"Object Number [: Object Heading] --> Name", u"Object Text --> Notes",
                    u"Created By --> (Tagged Value)", u"Created On --> (Tagged Value)",
                    u"Last Modified On --> (Tagged Value)", u"Priority --> Priority", u"Rationale",
                    u"Verification Method", u"Safety Integrity Level", u"Release", u"Supplier Status",
                    u"Object Short Text"});
}

void ShowOptions(DialogStage& stage) {
  PrepareOptions(stage);
  frmOptions(stage.doors).ShowOptions(orim::Repository(), stage.Package());
}

void ShowWizard(DialogStage& stage, bool combine) {
  PrepareOptions(stage);
  Options options(stage.doors);
  options.Load(stage.Package());
  frmMapWizard(stage.desktop).DoWizard(options, options.FindAttribute(u"Rationale"), combine);
}

void ShowCombineWizard(DialogStage& stage) {
  ShowWizard(stage, true);
}

void ShowMapWizard(DialogStage& stage) {
  ShowWizard(stage, false);
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

}  // namespace

const std::vector<ShownDialog>& EveryDialog() {
  static const std::vector<ShownDialog> dialogs = {
      {"frmAbout", u"About", 0, ID_cmdOK, ShowAbout},
      {"frmConnectProgress", u"Connect to Doors", 0, ID_cmdCancel, ShowConnectProgress},
      {"frmConnect", u"DOORS Connection", 5740, ID_lstModules, ShowConnect},
      {"frmInput", u"Manual DOORS Connection", 0, ID_txtEntry, ShowInput},
      {"frmOptions", u"Options", 3400, ID_lvMappings, ShowOptions},
      {"frmMapWizard-attribute", u"Configure attribute mapping", 6140, ID_lstExtra, ShowCombineWizard},
      {"frmMapWizard-target", u"Configure attribute mapping", 6040, ID_lstTarget, ShowMapWizard},
      {"frmImport", u"Import Progress", 6340, ID_List1, ShowImport},
      {"message-box", u"Kestrune Link", 0, IDOK, ShowBadExport}};
  return dialogs;
}

void PrepareLink(DialogStage& stage) {
  stage.app->answer_instead =
      kModule +
      u"\n/Vehicle Platform/Requirements/Stakeholder Requirements\n/Vehicle Platform/Tests/System Tests\n";
  stage.package_id = stage.model.AddPackage(0, u"System Requirements");
  SaveLinkFile(stage.platform, stage.Guid(), kModule);
}

}  // namespace kestrune::testing
