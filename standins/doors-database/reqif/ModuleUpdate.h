// Makes a module of the database follow its state in an exchange file.
#pragma once

#include "standins/doors-database/LoadReqif.h"
#include "standins/doors-database/reqif/Exchange.h"

namespace kestrune::standins {

/// Runs inside the caller's transaction. The module of that name in `folder` is made if it is missing.
LoadedModule UpdateModule(DoorsDatabase& database, ItemId folder, const ExchangeModule& module);

}  // namespace kestrune::standins
