// Which object of the database is which object of an exchange file, and the absolute numbers of the new ones.
#pragma once

#include "standins/doors-database/DoorsDatabase.h"
#include "standins/doors-database/reqif/Exchange.h"

namespace kestrune::standins {

struct MatchedObject {
  std::int64_t id = 0;  // 0: not in the database yet
  int absolute_number = 0;
  bool was_deleted = false;
};

struct ObjectMatch {
  std::vector<MatchedObject> objects;     // one for each object of the file
  std::vector<std::int64_t> not_in_file;  // undeleted objects of the module that the file lacks
};

/// By identifier first, then by absolute number. A new object gets the number that the file gives it if that
/// is free, else the next number after the highest (or, behind the last of all, the lowest that is free);
/// numbers of soft-deleted objects are not free.
ObjectMatch MatchObjects(Database& database, ItemId module, const std::vector<ExchangeObject>& objects);

}  // namespace kestrune::standins
