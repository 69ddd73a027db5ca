#include "options/MappingRule.h"

#include "common/Resources.h"
#include "platform/Automation.h"

namespace kestrune {

namespace {

constexpr TextView kArrow = u" -->";

[[noreturn]] void ThrowMalformed(TextView line) {
  throw AutomationError(error::kMalformedRule, u"MappingRule",
                        FormatResText(text::kMalformedRule, {Text(line)}));
}

/// Reads the text before the arrow into the rule; false when it is malformed.
bool ReadAttributes(TextView text, MappingRule& rule) {
  const auto bracket = text.find(u'[');
  rule.Attribute = Trim(text.substr(0, bracket));
  if (rule.Attribute.empty()) return false;
  if (bracket == TextView::npos) return true;
  const auto blank = text.find(u' ', bracket);
  if (blank == TextView::npos || text.back() != u']') return false;
  rule.CombinedAttribute = Trim(text.substr(blank, text.size() - 1 - blank));
  if (!rule.CombinedAttribute.empty()) rule.Separator = text.substr(bracket + 1, blank - bracket - 1);
  return true;
}

/// The rule of a line that is not blank; nothing when it is malformed.
std::optional<MappingRule> ReadRule(TextView line) {
  MappingRule rule;
  const auto arrow = line.find(kArrow);
  if (arrow == TextView::npos) {
    rule.Attribute = line;
    return rule;
  }
  rule.Target = Trim(line.substr(arrow + kArrow.size()));
  // No target holds a bracket: one behind the arrow is a rule gone wrong as well.
  const bool is_target = rule.Target.find(u'[') == Text::npos;
  if (!is_target || !ReadAttributes(line.substr(0, arrow), rule)) return std::nullopt;
  return rule;
}

}  // namespace

std::optional<MappingRule> ParseRule(TextView line) {
  if (Trim(line).empty()) return std::nullopt;
  auto rule = ReadRule(line);
  if (!rule) ThrowMalformed(line);
  return rule;
}

Text DisplayText(const MappingRule& rule) {
  if (rule.CombinedAttribute.empty()) return rule.Attribute;
  return rule.Attribute + u" [" + rule.Separator + u" " + rule.CombinedAttribute + u"]";
}

Text RuleText(const MappingRule& rule) {
  if (rule.CombinedAttribute.empty() && rule.Target.empty()) return rule.Attribute;
  return DisplayText(rule).append(kArrow).append(u" ") + rule.Target;
}

bool ReadsBack(const MappingRule& rule) {
  const Text text = RuleText(rule);
  const TextView line = Trim(text);
  return !line.empty() && line.find(kCrLf) == TextView::npos && ReadRule(line) == rule;
}

}  // namespace kestrune
