// kestrune-workbench: runs the add-in between the stand-ins of its two neighbours.
#pragma once

#include "workbench/Machine.h"

namespace kestrune::workbench {

/// Runs one command line, without the program's name; the exit status.
int RunWorkbench(const std::vector<std::string>& args, const Terminal& terminal);

}  // namespace kestrune::workbench
