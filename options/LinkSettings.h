// What the user has chosen for one linked package: the view that restricts its import and the rules that map
// DOORS attributes to the host. A value that knows neither the package nor DOORS.
#pragma once

#include <span>

#include "options/MappingRule.h"
#include "platform/Controls.h"

namespace kestrune {

/// A rule that an import does not use, and a sentence that tells the user why.
struct UnusedRule {
  std::size_t Slot;
  Text Why;
};

/// Rules are held in slots. Slot 0 is an empty rule that is never used. Slots 1 to 4 are the fixed rules;
/// they are never stored, listed, sorted or found by name. From slot 5 on stands one rule for each attribute
/// of the module, mapped or not; no attribute is named by two of them. A new object holds slot 0 only.
class LinkSettings {
 public:
  static constexpr std::size_t kFirstUserSlot = 5;

  Text RestrictToView;  // empty: the whole module
  std::vector<MappingRule> Rules = std::vector<MappingRule>(1);

  /// The fixed rules alone; the view restriction stays.
  void ResetRules();
  /// The fixed rules and the five default ones; the view restriction stays.
  void ResetToDefaults();

  /// Reads a rule text and adds the rule after the last slot, unsorted; rules that name one of its attributes
  /// go. Throws as ParseRule does, with nothing changed.
  void AddMapping(TextView mapping);
  /// The same for rules, one after the other.
  void AddRules(std::vector<MappingRule> rules);
  /// Brings the rules into line with the module's attributes: adds those that are new, drops the rules whose
  /// first attribute is not among them, sorts. Returns a sentence for every rule with a target that has lost
  /// an attribute: one that was dropped, and one that stays without its second.
  std::vector<Text> TakeAttributes(const std::vector<Text>& names);
  /// Takes the target from a rule and a combined rule apart; sorts.
  void UnmapIndex(std::size_t index);
  void RemoveAt(std::size_t index);
  /// Forgets an attribute; one that was combined with it stays, unmapped.
  void RemoveAttribute(TextView name);
  /// Rules from slot 5 on by the first attribute, in binary order.
  void Sort();

  /// The rules from slot 5 on.
  std::span<const MappingRule> UserRules() const;
  /// The slot, from 5 on, of the rule that names the attribute as its first or second, or 0.
  std::size_t FindAttribute(TextView name) const;
  /// That rule; throws AutomationError error::kNoSuchAttribute.
  MappingRule GetRule(TextView name) const;
  const Text& GetAttributeName(std::size_t index) const { return Rules.at(index).Attribute; }
  const Text& GetOrimTarget(std::size_t index) const { return Rules.at(index).Target; }
  /// The attributes of the rules without a target, in slot order.
  std::vector<Text> GetUnusedDOORSAttributes() const;
  /// The host fields that no rule from slot 5 on targets, in the order of orim::kElementFields.
  std::vector<Text> GetUnusedOrimFields() const;
  /// What an import leaves out: a rule for what a rule in an earlier slot fills already.
  std::vector<UnusedRule> UnusedRules() const;
  /// One row for each rule from slot 5 on: attributes, target. The rows of the slots are selected, else the
  /// first one.
  void FillListBox(ListView& lv, std::vector<std::size_t> selected_slots = {}) const;

  /// All mapped rules as a text for the clipboard: a header line, then a line for each rule.
  Text GetTemplate() const;
  /// Replaces the mapped rules by those of a template. False, with nothing changed, for a text that is none;
  /// throws as ParseRule does, with nothing changed.
  bool ApplyTemplate(TextView new_template);
  /// The template of the default rules.
  static Text DefaultTemplate();
};

}  // namespace kestrune
