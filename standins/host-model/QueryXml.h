// The host's query service: SQL in, rows as XML out.
#pragma once

#include "standins/sqlite/Database.h"

namespace kestrune::standins {

/// How column names are spelled in an answer; hosts differ with the database behind them.
enum class ColumnSpelling { kAsWritten, kUpper, kLower };

/// Runs one SELECT and answers ORIMDATA/Dataset_0/Data with one Row per row and, in
/// it, one element per column that is not NULL. Characters that XML cannot hold are
/// left out. Refuses, with an AutomationError, all that is not a SELECT and columns
/// whose name cannot name an XML element; SQL errors come with the database's message.
Text QueryXml(Database& database, TextView sql, ColumnSpelling spelling);

}  // namespace kestrune::standins
