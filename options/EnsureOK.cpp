// The one place where the options call their dialog, which is built upon them.

#include "common/Utilities.h"
#include "options/OptionsRecord.h"
#include "options/frmOptions.h"

namespace kestrune {

bool Options::EnsureOK(const orim::Repository& repository, const orim::Package& package, Text module_path) {
  const Platform& platform = doors_.platform();
  if (const auto stored = package.Element().TaggedValues().Find(Text(kRecordName))) {
    if (IsValidRecord(stored.Notes())) return true;
    ShowMessage(platform.desktop, LoadResText(text::kInvalidRecord), Icon::kExclamation);
  }
  if (module_path.empty()) module_path = GetLinkModulePath(platform, package.PackageGuid());
  if (module_path.empty()) {
    ShowMessage(platform.desktop, LoadResText(text::kModulePathNotSet), Icon::kStop);
    return false;
  }
  Package = package;
  if (!RefreshDoorsAttributes(module_path, true)) return false;
  Save();
  return frmOptions(doors_).ShowOptions(repository, package) != frmOptions::kCancelled;
}

}  // namespace kestrune
