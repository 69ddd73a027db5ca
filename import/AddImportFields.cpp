#include "import/AddImportFields.h"

namespace kestrune {

int AddImportFields(const Options& options, OrimDoc& orim_doc, DoorsDoc& doors_doc) {
  int count = 0;
  for (const MappingRule& rule : options.Rules) {
    if (rule.Target.empty()) continue;
    const bool is_tagged_value = rule.Target == target::kTaggedValue;
    orim_doc.AddField(is_tagged_value ? rule.Target + u" " + rule.Attribute : rule.Target);
    // What the rule shows between its brackets is what stands between the values: the separator and one
    // blank.
    const bool is_combined = !rule.CombinedAttribute.empty();
    doors_doc.AddField(rule.Attribute, is_combined ? rule.Separator + u" " : Text(), rule.CombinedAttribute);
    ++count;
  }
  return count;
}

}  // namespace kestrune
