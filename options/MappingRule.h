// What becomes of one DOORS attribute, or of two joined by a separator, at an import; and the one line of
// text that says so in the stored record, in the clipboard template and in the wizard's result:
//
//   Status                                          known, not imported
//   Status --> Priority                             into the host field Priority
//   Created By --> (Tagged Value)                   into a tagged value named after the attribute
//   Object Number [: Object Heading] --> Name       "2.1" and "Scope" become "2.1: Scope"
//   Mass [kg] --> Alias                             a bracket closed before any blank belongs to the name
//
// A separator ends at its first blank. Of two rules for one field the first is used.
#pragma once

#include <array>
#include <optional>

#include "platform/Text.h"

namespace kestrune {

struct MappingRule {
  Text Attribute;
  Text CombinedAttribute;  // empty: the rule is not combined
  Text Separator;          // as between the brackets, without the blank that ends it there
  Text Target;             // empty: not imported; else a target below or a host field

  friend bool operator==(const MappingRule&, const MappingRule&) = default;
};

namespace target {
inline constexpr TextView kTaggedValue = u"(Tagged Value)";
inline constexpr TextView kLevel = u"(Calculated) Level";
inline constexpr TextView kParent = u"(Calculated) Parent";
inline constexpr TextView kPosition = u"(Calculated) Position";
}  // namespace target

/// The key of an object in its module, imported by a fixed rule and open to one more rule of the user's.
inline constexpr TextView kObjectIdentifier = u"Object Identifier";
/// The place of an object among its siblings, which no export holds: it is counted.
inline constexpr TextView kFieldPosition = u"Field Position";

/// The rules that every import needs, whatever the user chooses.
inline constexpr std::array<TextView, 4> kFixedRules = {
    u"Object Identifier --> (Tagged Value)", u"Object Level --> (Calculated) Level",
    u"Object Parent --> (Calculated) Parent", u"Field Position --> (Calculated) Position"};

/// Reads a rule; nothing for a blank line. Text without " -->" is a bare attribute name, taken untrimmed.
/// Throws AutomationError error::kMalformedRule, whose description names the line, when there is no attribute
/// before the arrow, when a "[" opens neither "[separator, blank, attribute]" nor such a name, when the rule
/// would overwrite the key: a combined one of "Object Identifier" into a tagged value; and when its text would
/// not read back as the rule.
std::optional<MappingRule> ParseRule(TextView line);

/// The rule as a line of text.
Text RuleText(const MappingRule& rule);

/// What the options dialog lists of the rule: its attributes without the target.
Text DisplayText(const MappingRule& rule);

/// True when the rule's text, as a line among others, reads back as this very rule. It does not when the
/// attribute's name holds " -->" or a line break or has blanks at its ends; when it holds "[" with a blank
/// before the "]" and the rule has a target; when the separator holds a blank.
bool ReadsBack(const MappingRule& rule);

}  // namespace kestrune
