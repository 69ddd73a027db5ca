// Settings from rule texts, and back.
#pragma once

#include "options/LinkSettings.h"

namespace kestrune::testing {

using Lines = std::vector<Text>;

/// The rules from slot 5 on, as texts.
inline Lines RulesOf(const LinkSettings& settings) {
  Lines lines;
  for (const MappingRule& rule : settings.UserRules()) lines.push_back(RuleText(rule));
  return lines;
}

inline LinkSettings SettingsOf(const Lines& rules) {
  LinkSettings settings;
  settings.ResetRules();
  for (const Text& rule : rules) settings.AddMapping(rule);
  settings.Sort();
  return settings;
}

}  // namespace kestrune::testing
