#include "common/Utilities.h"

#include <algorithm>

#include "platform/Files.h"

namespace kestrune {

namespace {

constexpr TextView kMakerFolder = u"\\Brannock Works";
constexpr TextView kDataFolder = u"\\Brannock Works\\PlexaDOORS\\";
constexpr TextView kLinkFileExtension = u".xml";
constexpr TextView kModelPathXPath = u"DoorsConnection/ModelPath";
constexpr int kJapaneseCharset = 128;

void MakeFolder(const Text& path) {
  std::error_code already_there_or_impossible;
  std::filesystem::create_directory(ToPath(path), already_there_or_impossible);
}

bool IsRefusedByXml(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code < 32 && code != '\t' && code != '\n' && code != '\r';
}

}  // namespace

Text GetDataFolder(const Platform& platform) {
  const auto app_data = platform.folders.RoamingAppData();
  if (!app_data) return {};
  MakeFolder(*app_data + NativePath(kMakerFolder));
  const Text folder = *app_data + NativePath(kDataFolder);
  MakeFolder(folder);
  if (!IsFolder(folder)) ShowMessage(platform.desktop, LoadResText(text::kDataFolderFailed), Icon::kStop);
  return folder;
}

Text GetLinkFilePath(const Platform& platform, TextView package_guid) {
  const Text folder = GetDataFolder(platform);
  return folder.empty() ? folder : (folder + Text(package_guid)).append(kLinkFileExtension);
}

bool SaveLinkFile(const Platform& platform, TextView package_guid, TextView module_path) {
  XmlDocument document;
  document.AppendRoot(u"DoorsConnection").AppendElement(u"ModelPath").SetContent(module_path);
  return document.Save(GetLinkFilePath(platform, package_guid));
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

void ApplyStandardFont(Form& form) {
  ApplyFont(form, LoadResText(text::kStandardFont));
}

void ApplyFont(Form& form, const Text& font_entry) {
  if (font_entry == u"StandardFont") return;
  form.FontName = font_entry;
  for (Control* control : form.Controls()) {
    control->FontName = font_entry;
    control->FontCharset = kJapaneseCharset;
  }
}

Text CleanExportFile(const Platform& platform, const Text& path) {
  std::string bytes = ReadFile(path);
  bytes.erase(std::remove_if(bytes.begin(), bytes.end(), IsRefusedByXml), bytes.end());
  const Text copy = platform.folders.Temp() + u"plexadoors.tmp";
  if (IsFile(copy)) RemoveFile(copy);
  WriteFile(copy, bytes);
  return copy;
}

Text CannotReadXml(const Text& path) {
  return u"Can't read XML (" + path + u")";
}

bool IsRtf(TextView text) {
  return text.substr(0, 6) == u"{\\rtf1";
}

Text RtfToNotes(const orim::Repository& repository, const Text& text) {
  Text notes = repository.NotesFromFormat(u"RTF", text);
  if (TextView(notes).ends_with(kCrLf)) notes.resize(notes.size() - kCrLf.size());
  return notes;
}

void ShowMessage(Desktop& desktop, Text body, Icon icon) {
  desktop.Show({.Body = std::move(body), .Title = LoadResText(text::kTitle), .Icon = icon});
}

bool AskYesNo(Desktop& desktop, Text body, Icon icon) {
  return desktop.Show({.Body = std::move(body),
                       .Title = LoadResText(text::kTitle),
                       .Icon = icon,
                       .Buttons = Buttons::kYesNo}) == Answer::kYes;
}

bool RefuseLocked(Desktop& desktop, const orim::Package& package) {
  if (!package.Element().Locked()) return false;
  ShowMessage(desktop, LoadResText(text::kPackageLocked), Icon::kExclamation);
  return true;
}

}  // namespace kestrune
