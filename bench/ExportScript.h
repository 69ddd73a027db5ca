// The export script, run by the DOORS stand-in.
#pragma once

#include "bench/Workspace.h"

namespace kestrune::bench {

/// The time is that of the stand-in's interpreter and says nothing of DOORS; what
/// it says is whether the script's work is linear. Throws std::runtime_error
/// unless the script writes the very file that the other measurements read.
Cost RunExportScript(const Workspace& workspace, int objects);

}  // namespace kestrune::bench
