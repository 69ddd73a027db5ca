// What is selected in the host's window: a package, or an element in a package. It is part of the model file,
// so that one program can select what the next one works on.
#pragma once

#include "standins/sqlite/Database.h"

namespace kestrune::standins {

/// The kinds of context item, numbered as the host numbers them.
enum class ContextType : std::int32_t { kNone = 0, kElement = 4, kPackage = 5 };

struct Selection {
  std::int32_t package_id = 0;  // 0: nothing is selected
  std::int32_t element_id = 0;  // 0: the selection is the package itself

  ContextType Type() const {
    if (element_id != 0) return ContextType::kElement;
    return package_id != 0 ? ContextType::kPackage : ContextType::kNone;
  }
};

Selection ReadSelection(Database& model);
void WriteSelection(Database& model, const Selection& selection);

}  // namespace kestrune::standins
