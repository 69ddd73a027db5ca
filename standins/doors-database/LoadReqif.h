// Brings an exchange file into the database, as a user's import into DOORS does.
#pragma once

#include "standins/doors-database/DoorsDatabase.h"

namespace kestrune::standins {

struct LoadedModule {
  Text path;
  int objects = 0;  // in the file; of these:
  int added = 0;
  int restored = 0;            // soft-deleted before, back again
  int removed = 0;             // in the database only, soft-deleted now
  std::vector<Text> warnings;  // "file(line): what was left out"
};

/// Loads `file` (ReqIF, plain or in an archive) into `folder`, a path whose first name is a project and whose
/// other names are folders, made where they are missing; "" is a project named after the file's title. A
/// module that is there already follows the file: objects are recognised by their identifier in the file, or
/// else by their absolute number, and keep their absolute number. All or nothing: an AutomationError leaves
/// the database as it was.
std::vector<LoadedModule> LoadReqif(DoorsDatabase& database, const Text& file, TextView folder = {});

}  // namespace kestrune::standins
