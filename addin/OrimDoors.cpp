#include "addin/OrimDoors.h"

#include "addin/LocateInDoors.h"
#include "addin/frmAbout.h"
#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "documents/OutputTab.h"
#include "doors/frmConnect.h"
#include "import/frmImport.h"
#include "options/frmOptions.h"
#include "platform/Files.h"

namespace kestrune {

namespace {

constexpr std::int32_t kOldestBuild = 827;
constexpr const char16_t* kFamily = u"Plexa";
constexpr const char16_t* kMenuSeparator = u"-";
constexpr int kHelpContents = 1000;
constexpr std::int32_t kAutomationTrue = -1;
constexpr std::int32_t kHideBuiltInMenus = 7;
constexpr TextView kAddInFile = u"Kestrune.dll";

Text WithSeparator(Text folder) {
  if (!folder.ends_with(u'\\')) folder += u'\\';
  return folder;
}

}  // namespace

OrimDoors::OrimDoors(const Platform& platform) : platform_(platform), doors_(platform) {
  platform_.desktop.SetHelpFile(WithSeparator(platform_.folders.AddIn()) + u"ORIMDOORS.chm");
}

Text OrimDoors::Orim_Connect(const orim::Repository& Repository) {
  const Desktop::Callback callback(platform_.desktop);
  if (Repository.LibraryBuild() >= kOldestBuild) return kFamily;
  ShowMessage(platform_.desktop, LoadResText(text::kHostTooOld), Icon::kStop);
  return {};
}

void OrimDoors::Orim_Disconnect() {
  doors_.DoorsApp = Object();
}

Variant OrimDoors::Orim_OnPostInitialized(const orim::Repository& Repository) {
  const OutputTab output(Repository);
  output.Create();
  output.Write(u"Kestrune Link Initialized.");
  return {};
}

Variant OrimDoors::Orim_GetMenuItems(const orim::Repository& Repository, const Text&, const Text& MenuName) {
  const Desktop::Callback callback(platform_.desktop);
  const Text top = LoadResText(text::kMenuTop);
  if (MenuName.empty()) return top;
  if (MenuName != top) {
    ShowMessage(platform_.desktop, LoadResText(text::kInvalidMenu), Icon::kStop);
    return u"";
  }
  std::vector<Text> items;
  if (IsLinked(Repository.SelectedPackage())) {
    items = {LoadResText(text::kMenuImport), LoadResText(text::kMenuOptions), LoadResText(text::kMenuLocate),
             kMenuSeparator};
  }
  items.push_back(LoadResText(text::kMenuHelp));
  items.push_back(LoadResText(text::kMenuAbout));
  return items;
}

bool OrimDoors::IsLinked(const orim::Package& package) const {
  return package && IsFile(GetLinkFilePath(platform_, package.PackageGuid()));
}

void OrimDoors::Orim_MenuClick(const orim::Repository& Repository, const Text&, const Text& ItemName) {
  const Desktop::Callback callback(platform_.desktop);
  const std::pair<int, std::function<void()>> commands[] = {
      {text::kMenuImport, [&] { Import(Repository); }},
      {text::kMenuExport, [&] { Transfer(Repository, frmImport::kExport); }},
      {text::kMenuOptions, [&] { EditOptions(Repository); }},
      {text::kMenuHelp, [&] { platform_.desktop.ShowHelp(kHelpContents); }},
      {text::kMenuAbout, [&] { ShowAbout(); }},
      {text::kMenuLocate, [&] { LocateInDoors(doors_, Repository); }},
  };
  for (const auto& [label, command] : commands)
    if (ItemName == LoadResText(label)) return command();
}

void OrimDoors::Orim_ShowHelp(const Text&, const Text&) {}

void OrimDoors::Import(const orim::Repository& repository) {
  const orim::Package package = repository.SelectedPackage();
  if (package && RefuseLocked(platform_.desktop, package)) return;
  Transfer(repository, frmImport::kImport);
}

void OrimDoors::Transfer(const orim::Repository& repository, std::int32_t direction) {
  frmImport(doors_).Transfer(repository, direction);
}

void OrimDoors::EditOptions(const orim::Repository& repository) {
  const orim::Package package = repository.SelectedPackage();
  if (!package || !Options(doors_).EnsureOK(package, u"", OptionsDialog(doors_))) return;
  if (frmOptions(doors_).ShowOptions(repository, repository.SelectedPackage()) == frmOptions::kSaveAndImport)
    Transfer(repository, frmImport::kImport);
}

void OrimDoors::ShowAbout() {
  frmAbout about;
  platform_.desktop.ShowModal(about);
}

std::int32_t OrimDoors::Plexa_View(const orim::Repository&, const Text&, const Text&) {
  return 0;
}

std::int32_t OrimDoors::Plexa_Connect(const orim::Repository& Repository, std::int32_t PackageID,
                                      const Text& PackageGuid) {
  const Desktop::Callback callback(platform_.desktop);
  if (RefuseLocked(platform_.desktop, Repository.PackageByID(PackageID))) return 0;
  if (!doors_.EnsureDoors()) return 0;
  const Text module_path = frmConnect(doors_).ShowIt();
  if (module_path.empty()) return 0;
  const bool is_saved = SaveLinkFile(platform_, PackageGuid, module_path);
  Options(doors_).Clear(Repository.PackageByID(PackageID));
  return is_saved ? kAutomationTrue : 0;
}

Variant OrimDoors::Plexa_GetConnectedPackages(const orim::Repository&) {
  const Desktop::Callback callback(platform_.desktop);
  return GetConnectedPackages(platform_);
}

Variant OrimDoors::Plexa_GetProperty(const orim::Repository&, const Text&, const Text& PropertyName) {
  if (PropertyName == u"HiddenMenus") return kHideBuiltInMenus;
  if (PropertyName == u"IconID") return IconId();
  return {};
}

Text OrimDoors::IconId() const {
  Text path = platform_.folders.AddIn();
  if (!AsciiLower(path).ends_with(u".dll")) path.append(u"\\").append(kAddInFile);
  return path + u"#101";
}

bool OrimDoors::Plexa_Disconnect(const orim::Repository& Repository, const Text& PackageGuid) {
  const Desktop::Callback callback(platform_.desktop);
  if (!AskYesNo(platform_.desktop, LoadResText(text::kConfirmDisconnect), Icon::kExclamation)) return false;
  const orim::Package package = Repository.PackageByGuid(PackageGuid);
  if (RefuseLocked(platform_.desktop, package)) return false;
  const Text link_file = GetLinkFilePath(platform_, PackageGuid);
  if (IsFile(link_file)) RemoveFile(link_file);
  Options(doors_).Clear(package);
  package.ClearFlags();
  package.Save();
  Repository.RefreshModelView(package.PackageID());
  return true;
}

}  // namespace kestrune
