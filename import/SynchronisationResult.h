// What an import did.
#pragma once

#include "documents/ElementFieldWriter.h"

namespace kestrune {

/// Elements are counted once under each heading that is true of them.
struct SynchronisationResult {
  std::size_t New = 0;
  std::size_t Changed = 0;  // in a mapped value
  std::size_t Moved = 0;    // within the tree
  std::size_t Archived = 0;
  std::size_t Restored = 0;
  std::size_t Unchanged = 0;
  std::size_t Failed = 0;   // lack something that the module has, objects that were not made included
  std::size_t NotMade = 0;  // objects for which no element was made
  std::vector<FailedField> FailedFields;

  /// Whether the package is in line with the module now.
  bool IsComplete() const { return Failed == 0; }
};

}  // namespace kestrune
