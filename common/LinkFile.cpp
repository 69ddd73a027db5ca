#include "common/LinkFile.h"

#include "common/Utilities.h"
#include "platform/Files.h"
#include "platform/Xml.h"

namespace kestrune {

namespace {

constexpr TextView kMakerFolder = u"\\Brannock Works";
constexpr TextView kDataFolder = u"\\Brannock Works\\PlexaDOORS\\";
constexpr TextView kLinkFileExtension = u".xml";
constexpr TextView kModelPathXPath = u"DoorsConnection/ModelPath";

void MakeFolder(const Text& path) {
  std::error_code already_there_or_impossible;
  std::filesystem::create_directory(ToPath(path), already_there_or_impossible);
}

/// Replaces what is at `to`.
bool Rename(const Text& from, const Text& to) {
  std::error_code failure;
  std::filesystem::rename(ToPath(from), ToPath(to), failure);
  return !failure;
}

}  // namespace

Text GetDataFolder(const Platform& platform) {
  const auto app_data = platform.folders.RoamingAppData();
  if (!app_data) return {};
  MakeFolder(*app_data + NativePath(kMakerFolder));
  const Text folder = *app_data + NativePath(kDataFolder);
  MakeFolder(folder);
  if (!IsFolder(folder)) {
    platform.desktop.ShowOnce({.Body = LoadResText(text::kDataFolderFailed),
                               .Title = LoadResText(text::kTitle),
                               .Icon = Icon::kStop});
  }
  return folder;
}

Text GetLinkFilePath(const Platform& platform, TextView package_guid) {
  const Text folder = GetDataFolder(platform);
  return folder.empty() ? folder : (folder + Text(package_guid)).append(kLinkFileExtension);
}

bool SaveLinkFile(const Platform& platform, TextView package_guid, TextView module_path) {
  XmlDocument document;
  document.AppendRoot(u"DoorsConnection").AppendElement(u"ModelPath").SetContent(module_path);
  const Text path = GetLinkFilePath(platform, package_guid);
  if (path.empty()) return false;
  // Written beside and renamed: what cannot be written whole leaves the earlier file as it was. The name must
  // not look like a link file's.
  const Text beside = path.substr(0, path.size() - kLinkFileExtension.size()) + u".new";
  if (document.Save(beside) && Rename(beside, path)) return true;
  std::error_code already_gone;
  std::filesystem::remove(ToPath(beside), already_gone);
  return false;
}

Text GetLinkModulePath(const Platform& platform, TextView package_guid) {
  XmlDocument document;
  if (!document.LoadFile(GetLinkFilePath(platform, package_guid))) return {};
  const XmlNode path = document.SelectSingleNode(kModelPathXPath);
  return path ? path.Content() : Text();
}

Variant GetConnectedPackages(const Platform& platform) {
  std::vector<Text> guids;
  for (const Text& name : ListFolder(GetDataFolder(platform))) {
    const auto extension = AsciiLower(name).find(kLinkFileExtension);
    if (extension != Text::npos) guids.push_back(name.substr(0, extension));
  }
  return guids.empty() ? Variant() : Variant(guids);
}

}  // namespace kestrune
