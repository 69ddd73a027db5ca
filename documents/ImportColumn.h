// One column of an import: which attributes of the module fill it, and what in the element it fills. Both
// documents and the writer are told of the same columns, so that a column means the same in all three.
#pragma once

#include "options/MappingRule.h"

namespace kestrune {

struct ImportColumn {
  enum class Place { kElementField, kTaggedValue, kLevel, kParent, kPosition };

  Text Attribute;
  Text Separator;       // between the two values, as it is written there
  Text ExtraAttribute;  // "": none
  enum Place Place = Place::kElementField;
  Text Name;  // of the element field or the tagged value, or what is calculated

  friend bool operator==(const ImportColumn&, const ImportColumn&) = default;
};

/// The column of a rule that has a target. Throws AutomationError 0x80040001 "Unknown field: ..." for a
/// target that no element has.
ImportColumn ColumnOf(const MappingRule& rule);

}  // namespace kestrune
