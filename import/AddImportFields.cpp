#include "import/AddImportFields.h"

namespace kestrune {

int AddImportFields(const Options& options, OrimDoc& orim_doc, DoorsDoc& doors_doc) {
  int count = 0;
  for (const MappingRule& rule : options.Rules) {
    if (rule.Target.empty()) continue;
    const ImportColumn column = ColumnOf(rule);
    orim_doc.AddField(column);
    doors_doc.AddField(column);
    ++count;
  }
  return count;
}

}  // namespace kestrune
