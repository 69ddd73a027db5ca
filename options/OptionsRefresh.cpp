// How Options learns the attributes of the module.

#include <unordered_set>

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
  const std::vector<Text> names = NamesIn(attribute_list);
  const std::unordered_set<Text> in_module(names.begin(), names.end());
  std::unordered_set<Text> known;
  std::vector<MappingRule> kept;
  for (MappingRule rule : UserRules()) {
    if (!in_module.contains(rule.Attribute)) rule = {.Attribute = rule.CombinedAttribute};
    if (!in_module.contains(rule.Attribute)) continue;
    known.insert({rule.Attribute, rule.CombinedAttribute});
    kept.push_back(std::move(rule));
  }
  for (const Text& name : names)
    if (known.insert(name).second) kept.push_back({.Attribute = name});
  Rules.resize(std::min(kFirstUserSlot, Rules.size()));
  std::move(kept.begin(), kept.end(), std::back_inserter(Rules));
  Sort();
  return true;
}

bool Options::RefreshDoorsAttributes(const Text& module_path, bool reload_defaults) {
  if (!doors_.EnsureDoors()) return false;
  const auto fail = [this](Text why) {
    ShowMessage(doors_.platform().desktop, std::move(why), Icon::kStop);
    return false;
  };
  const Text answer = doors_.RunScript(dxl_script::kExportModule, JoinFields({module_path, u"1", u"", u""}));
  if (AsciiUpper(answer.substr(0, 5)) == u"ERROR") return fail(answer);
  if (answer.empty()) return fail(LoadResText(text::kInvalidResponse));
  XmlDocument d;
  if (!d.LoadFile(answer)) return fail(CannotReadXml(answer) + u". " + d.ParseError().Reason);
  if (!RefreshDoorsAttributesFromXML(d, reload_defaults)) return fail(LoadResText(text::kInvalidResponse));
  DeleteExport(answer);
  return true;
}

}  // namespace kestrune
