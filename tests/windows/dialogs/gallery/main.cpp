// Shows one dialog with content as it is in use, for a picture to be taken:
//   dialog-gallery DIALOG FILE
// When the dialog stands, its place on the screen is written into FILE, as "800x600+10+20"; when FILE goes,
// the dialog is closed.
#include <fstream>
#include <iostream>

#include "tests/windows/dialogs/EveryDialog.h"

namespace kestrune::testing {
namespace {

struct Picture {
  std::string name;
  std::string dialog = name;
  std::function<void(const Screen&)> person = [](const Screen&) {};  // does this before the picture is taken
};

const Picture kPictures[] = {
    {"frmAbout"},
    {"frmConnectProgress", "frmConnectProgress",
     [](const Screen& progress) {
       progress.Await("its text", [&] { return !progress.TextAt(ID_lblStatus).empty(); });
     }},
    {"frmConnect", "frmConnect",
     [](const Screen& connect) {
       connect.Await("the modules", [&] { return connect.Ask(ID_lstModules, LB_GETCURSEL) == 0; });
     }},
    {"frmInput", "frmInput", [](const Screen& box) { box.Type(u"/Vehicle Platform/Requirements"); }},
    {"frmOptions"},
    {"frmMapWizard-attribute"},
    {"frmMapWizard-separator", "frmMapWizard-attribute", [](const Screen& wizard) { wizard.Key(VK_RETURN); }},
    {"frmMapWizard-target"},
    {"frmImport", "frmImport", [](const Screen& import) { import.AwaitEnabled(ID_cmdClose); }},
    {"message-box"}};

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
  const auto& dialogs = EveryDialog();
  const auto shown = std::find_if(dialogs.begin(), dialogs.end(),
                                  [&](const ShownDialog& each) { return each.name == picture.dialog; });
  DialogStage stage;
  PrepareLink(stage);
  WithPerson(
      [&] {
        const Screen dialog(shown->title);
        picture.person(dialog);
        Pose(dialog, file);
      },
      [&] { shown->show(stage); });
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
