// A model in print.
#pragma once

#include <iosfwd>

#include "workbench/orim/OrimModel.h"

namespace kestrune::workbench {

/// A line for each package and element, indented: name, identifier, the beginning of the notes.
void PrintTree(const OrimModel& model, std::ostream& out);

}  // namespace kestrune::workbench
