#include "documents/ImportColumn.h"

#include "orim/ElementFields.h"
#include "platform/Automation.h"

namespace kestrune {

namespace {

struct CalculatedPlace {
  TextView Target;
  enum ImportColumn::Place Place;
  TextView Name;
};
constexpr CalculatedPlace kCalculatedPlaces[] = {
    {target::kLevel, ImportColumn::Place::kLevel, u"Level"},
    {target::kParent, ImportColumn::Place::kParent, u"Parent"},
    {target::kPosition, ImportColumn::Place::kPosition, u"Position"},
};

void SetPlace(const MappingRule& rule, ImportColumn& column) {
  for (const CalculatedPlace& calculated : kCalculatedPlaces) {
    if (rule.Target != calculated.Target) continue;
    column.Place = calculated.Place;
    column.Name = calculated.Name;
    return;
  }
  if (rule.Target == target::kTaggedValue) {
    column.Place = ImportColumn::Place::kTaggedValue;
    column.Name = rule.Attribute;
    return;
  }
  if (!orim::FindElementField(rule.Target))
    throw AutomationError(error::kUnknownField, u"OrimDoc.Load", u"Unknown field: " + rule.Target);
  column.Name = rule.Target;
}

}  // namespace

ImportColumn ColumnOf(const MappingRule& rule) {
  ImportColumn column{.Attribute = rule.Attribute, .ExtraAttribute = rule.CombinedAttribute};
  // What the rule shows between its brackets is what stands between the values: the separator and one blank.
  if (!rule.CombinedAttribute.empty()) column.Separator = rule.Separator + u" ";
  SetPlace(rule, column);
  return column;
}

}  // namespace kestrune
