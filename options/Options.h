// The options of one linked package: the view that restricts its import and the rules that map DOORS
// attributes to the host. Made for one use, a dialog or an import, and dropped after it.
#pragma once

#include <span>

#include "doors/Doors.h"
#include "options/MappingRule.h"
#include "orim/Repository.h"
#include "platform/Controls.h"
#include "platform/Xml.h"

namespace kestrune {

/// Rules are held in slots. Slot 0 is an empty rule that is never used. Slots 1 to 4 are the fixed rules;
/// they are never stored, listed, sorted or found by name. From slot 5 on stands one rule for each attribute
/// of the module, mapped or not; no attribute is named by two of them. A new object holds slot 0 only:
/// LoadDefault or Load comes first.
///
/// Failures of the host pass through as AutomationError, from every operation that takes or holds the
/// package.
class Options {
 public:
  static constexpr std::size_t kFirstUserSlot = 5;

  explicit Options(Doors& doors) : doors_(doors) {}

  orim::Package Package;
  Text RestrictToView;  // empty: the whole module
  Text Complaints;      // what Load could not read, a line each; Save would lose it
  std::vector<MappingRule> Rules = std::vector<MappingRule>(1);

  /// The fixed rules and the five default ones; the view restriction stays.
  void LoadDefault(const orim::Package& package);
  /// Reads the record of the package; false, with nothing changed but Package, when it has none. A record
  /// that is not valid is told to the user and replaced by the defaults, to which its rule lines are added. A
  /// rule line that cannot be read is among the Complaints and not among the rules.
  bool Load(const orim::Package& package);
  /// Deletes the record of the package, if there is one.
  void Clear(const orim::Package& pkg);
  /// Sorts the rules and writes the record, unless the package holds it already just so.
  void Save();

  /// Reads a rule text and adds the rule after the last slot, unsorted; rules that name one of its attributes
  /// go. Throws as ParseRule does, with nothing changed.
  void AddMapping(TextView mapping);
  /// Takes the module's attributes from an export: adds those that are new, drops the rules whose first
  /// attribute the module lacks, sorts. False, with nothing changed, for a document without an attribute
  /// list.
  bool RefreshDoorsAttributesFromXML(const XmlDocument& d, bool reload_defaults = false);
  /// The same, with an export of the attributes that DOORS is asked for. False, after a message, when DOORS
  /// cannot be reached or fails; a lost connection throws AutomationError.
  bool RefreshDoorsAttributes(const Text& module_path, bool reload_defaults = false);
  /// Sees to it that the package has a valid record: makes one where there is none and has the user look at
  /// it. An empty module path means the one of the package's link file. False when there is none after all or
  /// the user cancels.
  bool EnsureOK(const orim::Repository& repository, const orim::Package& package, Text module_path);

  /// Takes the target from a rule and a combined rule apart; sorts.
  void UnmapIndex(std::size_t index);
  /// One row for each rule from slot 5 on: attributes, target. The first row is selected.
  void FillListBox(ListView& lv) const;
  /// The attributes of the rules without a target, in slot order.
  std::vector<Text> GetUnusedDOORSAttributes() const;
  /// The host fields that no rule from slot 5 on targets, in the order of orim::kElementFields.
  std::vector<Text> GetUnusedOrimFields() const;
  const Text& GetAttributeName(std::size_t index) const { return Rules.at(index).Attribute; }
  const Text& GetOrimTarget(std::size_t index) const { return Rules.at(index).Target; }

  /// All mapped rules as a text for the clipboard: a header line, then a line for each rule.
  Text GetTemplate() const;
  /// Unmaps every rule and applies those of the template. A text without the header is told to the user and
  /// changes nothing; so does one with a line that is no rule, which throws as ParseRule does.
  void SetTemplate(TextView new_template);
  /// The template of the default rules.
  static Text DefaultTemplate();

  /// A place to look into a running import from the outside; always empty.
  Text DebugMe() const { return {}; }

  /// The slot, from 5 on, of the rule that names the attribute as its first or second, or 0.
  std::size_t FindAttribute(TextView name) const;
  /// That rule; throws AutomationError error::kBase, "Can't find attribute".
  MappingRule GetRule(TextView name) const;
  /// Forgets an attribute; one that was combined with it stays, unmapped.
  void RemoveAttribute(TextView name);
  void RemoveAt(std::size_t index);
  /// Rules from slot 5 on by the first attribute, in binary order.
  void Sort();

 private:
  void ResetRules();
  /// The rules from slot 5 on.
  std::span<const MappingRule> UserRules() const;
  void AddRules(std::vector<MappingRule> rules);

  Doors& doors_;
};

}  // namespace kestrune
