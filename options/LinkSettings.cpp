#include "options/LinkSettings.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "common/Resources.h"
#include "orim/ElementFields.h"
#include "platform/Automation.h"

namespace kestrune {

namespace {

bool Names(const MappingRule& rule, TextView name) {
  return !name.empty() && (rule.Attribute == name || rule.CombinedAttribute == name);
}

/// The attributes of a rule, each as a rule of its own without a target.
void AppendUnmapped(const MappingRule& rule, std::vector<MappingRule>& rules) {
  rules.push_back({.Attribute = rule.Attribute});
  if (!rule.CombinedAttribute.empty()) rules.push_back({.Attribute = rule.CombinedAttribute});
}

/// What becomes of a rule with a target when the module lacks one of its attributes.
std::optional<Text> LossOf(const MappingRule& rule, const std::unordered_set<Text>& in_module) {
  if (rule.Target.empty()) return std::nullopt;
  if (!in_module.contains(rule.Attribute))
    return FormatResText(text::kLostRule, {rule.Attribute, RuleText(rule)});
  if (!rule.CombinedAttribute.empty() && !in_module.contains(rule.CombinedAttribute))
    return FormatResText(text::kLostSecond, {rule.CombinedAttribute, RuleText(rule), rule.Attribute});
  return std::nullopt;
}

}  // namespace

void LinkSettings::ResetRules() {
  Rules.assign(1, {});
  for (const TextView fixed : kFixedRules) Rules.push_back(*ParseRule(fixed));
}

void LinkSettings::ResetToDefaults() {
  ResetRules();
  ApplyTemplate(DefaultTemplate());
}

std::span<const MappingRule> LinkSettings::UserRules() const {
  return std::span(Rules).subspan(std::min(kFirstUserSlot, Rules.size()));
}

void LinkSettings::AddRules(std::vector<MappingRule> rules) {
  std::move(rules.begin(), rules.end(), std::back_inserter(Rules));
  // From the last to the first, a rule stays when none added after it claims one of its attributes.
  std::unordered_set<Text> claimed;
  std::vector<MappingRule> kept;
  while (Rules.size() > kFirstUserSlot) {
    MappingRule rule = std::move(Rules.back());
    Rules.pop_back();
    const bool is_outdated = claimed.contains(rule.Attribute) ||
                             (!rule.CombinedAttribute.empty() && claimed.contains(rule.CombinedAttribute));
    claimed.insert({rule.Attribute, rule.CombinedAttribute});
    if (!is_outdated) kept.push_back(std::move(rule));
  }
  std::move(kept.rbegin(), kept.rend(), std::back_inserter(Rules));
}

void LinkSettings::AddMapping(TextView mapping) {
  if (auto rule = ParseRule(mapping)) AddRules({std::move(*rule)});
}

std::vector<Text> LinkSettings::TakeAttributes(const std::vector<Text>& names) {
  const std::unordered_set<Text> in_module(names.begin(), names.end());
  std::vector<Text> losses;
  std::unordered_set<Text> known;
  std::vector<MappingRule> kept;
  for (MappingRule rule : UserRules()) {
    if (auto loss = LossOf(rule, in_module)) losses.push_back(std::move(*loss));
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
  return losses;
}

void LinkSettings::Sort() {
  if (UserRules().empty()) return;
  std::stable_sort(Rules.begin() + kFirstUserSlot, Rules.end(),
                   [](const MappingRule& a, const MappingRule& b) { return a.Attribute < b.Attribute; });
}

void LinkSettings::UnmapIndex(std::size_t index) {
  std::vector<MappingRule> unmapped;
  AppendUnmapped(Rules.at(index), unmapped);
  AddRules(std::move(unmapped));
  Sort();
}

void LinkSettings::RemoveAt(std::size_t index) {
  Rules.erase(Rules.begin() + static_cast<std::ptrdiff_t>(index));
}

void LinkSettings::RemoveAttribute(TextView name) {
  const std::size_t slot = FindAttribute(name);
  if (slot == 0) return;
  UnmapIndex(slot);
  RemoveAt(FindAttribute(name));
}

std::size_t LinkSettings::FindAttribute(TextView name) const {
  for (std::size_t slot = kFirstUserSlot; slot < Rules.size(); ++slot)
    if (Names(Rules[slot], name)) return slot;
  return 0;
}

MappingRule LinkSettings::GetRule(TextView name) const {
  const std::size_t slot = FindAttribute(name);
  if (slot == 0) throw AutomationError(error::kNoSuchAttribute, u"Options.GetRule", u"Can't find attribute");
  return Rules[slot];
}

std::vector<Text> LinkSettings::GetUnusedDOORSAttributes() const {
  std::vector<Text> unused;
  for (const MappingRule& rule : UserRules())
    if (rule.Target.empty()) unused.push_back(rule.Attribute);
  return unused;
}

std::vector<Text> LinkSettings::GetUnusedOrimFields() const {
  std::vector<Text> fields;
  for (const orim::ElementField& field : orim::kElementFields) fields.emplace_back(field.Name);
  for (const MappingRule& rule : UserRules()) {
    const Text used = AsciiLower(rule.Target);
    std::erase_if(fields, [&used](const Text& field) { return AsciiLower(field) == used; });
  }
  return fields;
}

std::vector<UnusedRule> LinkSettings::UnusedRules() const {
  std::vector<UnusedRule> unused;
  std::unordered_map<Text, std::size_t> slot_by_target;
  for (std::size_t slot = 1; slot < Rules.size(); ++slot) {
    const MappingRule& rule = Rules[slot];
    if (rule.Target.empty() || rule.Target == target::kTaggedValue) continue;
    const auto [used, is_first] = slot_by_target.emplace(rule.Target, slot);
    if (is_first) continue;
    const Text why = FormatResText(text::kUnusedRule, {RuleText(rule), RuleText(Rules[used->second])});
    unused.push_back({slot, why});
  }
  return unused;
}

void LinkSettings::FillListBox(ListView& lv, std::vector<std::size_t> selected_slots) const {
  std::vector<std::vector<Text>> rows;
  for (const MappingRule& rule : UserRules()) rows.push_back({DisplayText(rule), rule.Target});
  if (selected_slots.empty() && !rows.empty()) selected_slots = {kFirstUserSlot};
  for (std::size_t& slot : selected_slots) slot -= kFirstUserSlot;
  lv.SetRows(std::move(rows));
  lv.SetSelection(selected_slots);
}

Text LinkSettings::GetTemplate() const {
  Text lines = LoadResText(text::kTemplateHeader).append(kCrLf);
  for (const MappingRule& rule : UserRules())
    if (!rule.Target.empty()) lines.append(RuleText(rule)).append(kCrLf);
  return lines;
}

bool LinkSettings::ApplyTemplate(TextView new_template) {
  const std::vector<Text> lines = Split(new_template, kCrLf);
  if (lines.front() != LoadResText(text::kTemplateHeader)) return false;
  std::vector<MappingRule> rules;
  for (const MappingRule& rule : UserRules())
    if (!rule.Target.empty()) AppendUnmapped(rule, rules);
  for (std::size_t line = 1; line < lines.size(); ++line)
    if (auto rule = ParseRule(lines[line])) rules.push_back(std::move(*rule));
  AddRules(std::move(rules));
  Sort();
  return true;
}

Text LinkSettings::DefaultTemplate() {
  return LoadResText(text::kTemplateHeader).append(kCrLf).append(LoadResText(text::kDefaultRules));
}

}  // namespace kestrune
