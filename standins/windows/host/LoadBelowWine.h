// Reading exchange files takes libraries that there are not for Windows: where the system below is Linux, as
// under Wine, the native kestrune-workbench does it.
#pragma once

#include "platform/Text.h"

namespace kestrune::standins {

/// Has `workbench` load an exchange file into a folder of a DOORS database; nobody may be writing to it.
/// Throws CommandError with what the workbench says, and where there is no Wine.
void LoadBelowWine(const Text& workbench, const Text& file, const Text& folder, const Text& database);

}  // namespace kestrune::standins
