// The module "/Car" with so many objects that an import takes its time.
#pragma once

#include "standins/doors-database/DoorsDatabase.h"

namespace kestrune::testing {

/// Objects up to that number, each with a heading, below one another by tens.
inline void AddObjects(standins::DoorsDatabase& database, int last) {
  standins::Transaction transaction(database.Sql());
  standins::Statement object = database.Sql().Prepare(
      "INSERT OR IGNORE INTO object (id, module, absolute_number, parent, position) VALUES (?1, 2, ?1, ?2, "
      "?1)");
  standins::Statement value = database.Sql().Prepare(
      "INSERT INTO value (object, attribute, text) SELECT ?1, id, 'Part ' || ?1 FROM attribute"
      " WHERE name = 'Object Heading' AND NOT EXISTS (SELECT 1 FROM value WHERE object = ?1)");
  for (int number = 1; number <= last; ++number) {
    object.Reset();
    object.Bind(number, number <= 10 ? Variant() : Variant(number / 10));
    object.Run();
    value.Reset();
    value.Bind(number);
    value.Run();
  }
  transaction.Commit();
}

}  // namespace kestrune::testing
