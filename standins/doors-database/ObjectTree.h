// Turns the object rows of a module, which know only their parent and position, into document order.
#pragma once

#include <unordered_map>

#include "standins/doors-database/ModuleContent.h"

namespace kestrune::standins {

struct ObjectTree {
  std::vector<DoorsObject> objects;
  std::unordered_map<std::int64_t, int> place_by_id;
};

/// Siblings go by position, then by id. Throws AutomationError when a parent is no object of the module or
/// the parents form a circle.
ObjectTree ReadObjectTree(Database& database, ItemId module);

}  // namespace kestrune::standins
