// The tables of a model file, named and laid out as the host's queries expect them.
#pragma once

#include "standins/sqlite/Database.h"

namespace kestrune::standins {

/// Makes the tables in an empty database, in one transaction.
void CreateSchema(Database& database);

/// Throws AutomationError with the database's message when a table or a column is missing; writes nothing.
void CheckSchema(Database& database);

}  // namespace kestrune::standins
