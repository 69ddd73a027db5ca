#include "options/MappingRule.h"

#include "common/Resources.h"
#include "platform/Automation.h"

namespace kestrune {

namespace {

constexpr TextView kArrow = u" -->";

[[noreturn]] void Refuse(int why, TextView line) {
  throw AutomationError(error::kMalformedRule, u"MappingRule", FormatResText(why, {Text(line)}));
}

/// True when the bracket at `open` is closed before any blank: it belongs to a name such as "Mass [kg]".
bool IsOfAName(TextView attributes, std::size_t open) {
  const auto close = attributes.find(u']', open);
  return close != TextView::npos && attributes.find(u' ', open) > close;
}

/// Reads the text before the arrow, without blanks at its ends, into the rule; false when it is malformed.
bool ReadAttributes(TextView attributes, MappingRule& rule) {
  const auto bracket = attributes.find(u'[');
  const auto blank = attributes.find(u' ', bracket);
  const bool is_combined = bracket != TextView::npos && blank != TextView::npos && attributes.back() == u']';
  rule.Attribute = is_combined ? Trim(attributes.substr(0, bracket)) : attributes;
  if (rule.Attribute.empty()) return false;
  if (!is_combined) return bracket == TextView::npos || IsOfAName(attributes, bracket);
  rule.CombinedAttribute = Trim(attributes.substr(blank, attributes.size() - 1 - blank));
  if (!rule.CombinedAttribute.empty()) rule.Separator = attributes.substr(bracket + 1, blank - bracket - 1);
  return true;
}

/// True for a rule that would put another value into the tagged value by which objects are known again.
bool OverwritesTheKey(const MappingRule& rule) {
  return rule.Target == target::kTaggedValue && rule.Attribute == kObjectIdentifier &&
         !rule.CombinedAttribute.empty();
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
  if (!is_target || !ReadAttributes(Trim(line.substr(0, arrow)), rule)) return std::nullopt;
  return rule;
}

}  // namespace

std::optional<MappingRule> ParseRule(TextView line) {
  if (Trim(line).empty()) return std::nullopt;
  auto rule = ReadRule(line);
  if (rule && OverwritesTheKey(*rule)) Refuse(text::kOverwritesTheKey, line);
  const bool is_bare = rule && rule->Target.empty() && rule->CombinedAttribute.empty();
  if (!rule || (!is_bare && !ReadsBack(*rule))) Refuse(text::kMalformedRule, line);
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
  const Text written = RuleText(rule);
  const TextView line = Trim(written);
  return !line.empty() && line.find(kCrLf) == TextView::npos && ReadRule(line) == rule &&
         !OverwritesTheKey(rule);
}

}  // namespace kestrune
