// Makes a module of the database follow its state in an exchange file.
#pragma once

#include "workbench/doors/LoadReqif.h"
#include "workbench/doors/reqif/Exchange.h"

namespace kestrune::workbench {

/// Runs inside the caller's transaction. The module of that name in `folder` is made if it is missing.
LoadedModule UpdateModule(DoorsDatabase& database, ItemId folder, const ExchangeModule& module);

}  // namespace kestrune::workbench
