// Declares the mapped attributes to both documents, so that a column means the same in both.
#pragma once

#include "documents/DoorsDoc.h"
#include "documents/OrimDoc.h"

namespace kestrune {

/// Adds the column of every rule that has a target and is used, the fixed ones included, to both documents; returns how
/// many there were. Throws as ColumnOf does.
int AddImportFields(const LinkSettings& settings, OrimDoc& orim_doc, DoorsDoc& doors_doc);

}  // namespace kestrune
