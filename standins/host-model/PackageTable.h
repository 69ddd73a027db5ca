// The rows of packages in the model file, each with the element of its own.
#pragma once

#include <optional>

#include "standins/sqlite/Database.h"

namespace kestrune::standins {

struct PackageRow {
  std::int32_t id = 0;         // 0 until the row is in the table
  std::int32_t parent_id = 0;  // 0 for a root package
  std::int32_t element_id = 0;
  Text guid;
  Text name;
  Text flags;
};

std::optional<PackageRow> FindPackage(Database& model, std::int32_t id);
std::optional<PackageRow> FindPackageByGuid(Database& model, TextView guid);

/// Adds a row with id 0 together with its element and gives it both ids, or stores name and flags of the row
/// with that id. All or nothing. Throws AutomationError for a name that is too long, a lock or a parent that
/// does not exist.
void SavePackage(Database& model, PackageRow& row);

}  // namespace kestrune::standins
