// How Options learns the attributes of the module.

#include <algorithm>

#include "common/Utilities.h"
#include "options/Options.h"
#include "platform/Files.h"

namespace kestrune {

namespace {

/// A name of blanks, or of more than one line, cannot stand in a rule's text.
bool IsNameForRules(TextView name) {
  return !Trim(name).empty() && name.find_first_of(kCrLf) == TextView::npos;
}

/// The file is DOORS' and in a folder for temporary files; one that cannot be deleted is no concern of the
/// user's.
void DeleteExport(const Text& path) {
  std::error_code in_use;
  std::filesystem::remove(ToPath(path), in_use);
}

}  // namespace

bool Options::RefreshDoorsAttributesFromXML(const ExportAttributes& d, bool reload_defaults) {
  if (!d.IsThere()) return false;
  if (reload_defaults) LoadDefault(Package);
  std::vector<Text> names;
  std::ranges::copy_if(d.Names(), std::back_inserter(names), IsNameForRules);
  LostRules = TakeAttributes(names);
  if (reload_defaults) LostRules.clear();  // a default for an attribute that the module never had
  return true;
}

bool Options::RefreshDoorsAttributes(const Text& module_path, bool reload_defaults) {
  if (!doors_.EnsureDoors()) return false;
  const auto fail = [this](Text why) {
    ShowMessage(doors_.platform().desktop, std::move(why), Icon::kStop);
    return false;
  };
  const Text parameters = ExportParameters(module_path, ExportScope::kAttributes);
  const Text answer = doors_.RunScriptWaiting(dxl_script::kExportModule, parameters);
  if (AsciiUpper(answer.substr(0, 5)) == u"ERROR") return fail(answer);
  if (answer.empty()) return fail(LoadResText(text::kInvalidResponse));
  ExportAttributes d;
  if (const auto error = ReadXmlFile(answer, d)) return fail(CannotReadXml(answer) + u". " + error->Reason);
  if (!RefreshDoorsAttributesFromXML(d, reload_defaults)) return fail(LoadResText(text::kInvalidResponse));
  DeleteExport(answer);
  return true;
}

}  // namespace kestrune
