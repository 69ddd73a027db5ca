// Declares the mapped attributes to both documents, so that a column means the same in both.
#pragma once

#include "documents/DoorsDoc.h"
#include "documents/OrimDoc.h"

namespace kestrune {

/// For every rule that has a target, the fixed ones included, adds the target to `orim_doc` and the attribute
/// to `doors_doc`; returns how many there were.
int AddImportFields(const Options& options, OrimDoc& orim_doc, DoorsDoc& doors_doc);

}  // namespace kestrune
