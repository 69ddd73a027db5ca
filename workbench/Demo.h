// The tour: a package is linked to a module that came from a real requirements file, imported, and imported
// again after the module has changed, twice.
#pragma once

#include "workbench/Machine.h"

namespace kestrune::workbench {

/// Runs the commands of the tour in a folder of its own, which it removes at the end, and shows each with its
/// output. Throws CommandError when one of them fails.
void RunDemo(const Terminal& terminal);

}  // namespace kestrune::workbench
