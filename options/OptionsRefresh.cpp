// How Options learns the attributes of the module.

#include "common/Utilities.h"
#include "options/Options.h"
#include "platform/Files.h"

namespace kestrune {

namespace {

/// A name of blanks, or of more than one line, cannot stand in a rule's text.
bool IsNameForRules(TextView name) {
  return !Trim(name).empty() && name.find_first_of(kCrLf) == TextView::npos;
}

std::vector<Text> NamesIn(const XmlNode& attribute_list) {
  std::vector<Text> names;
  for (XmlNode each = attribute_list.FirstChild(); each; each = each.NextSibling()) {
    auto name = each.Attribute(u"Name");
    if (name && IsNameForRules(*name)) names.push_back(std::move(*name));
  }
  return names;
}

/// The file is DOORS' and in a folder for temporary files; one that cannot be deleted is no concern of the
/// user's.
void DeleteExport(const Text& path) {
  std::error_code in_use;
  std::filesystem::remove(ToPath(path), in_use);
}

}  // namespace

bool Options::RefreshDoorsAttributesFromXML(const XmlDocument& d, bool reload_defaults) {
  const XmlNode attribute_list = d.SelectSingleNode(u"DoorsModule/Attributes");
  if (!attribute_list) return false;
  if (reload_defaults) LoadDefault(Package);
  LostRules = TakeAttributes(NamesIn(attribute_list));
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
  XmlDocument d;
  if (!d.LoadFile(answer)) return fail(CannotReadXml(answer) + u". " + d.ParseError().Reason);
  if (!RefreshDoorsAttributesFromXML(d, reload_defaults)) return fail(LoadResText(text::kInvalidResponse));
  DeleteExport(answer);
  return true;
}

}  // namespace kestrune
