// A model in print.
#pragma once

#include <iosfwd>

#include "standins/host-model/OrimModel.h"

namespace kestrune::standins {

/// A line for each package and element, indented: name, identifier, the beginning of the notes.
void PrintTree(const OrimModel& model, std::ostream& out);

}  // namespace kestrune::standins
