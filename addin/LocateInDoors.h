// The menu's "&Locate in DOORS": shows the DOORS object from which the selected element was imported.
#pragma once

#include "doors/Doors.h"
#include "orim/Repository.h"

namespace kestrune {

/// Brings up no message where there is nothing to locate (no linked package selected, no element at hand, no
/// mapping for the attribute "Absolute Number", an object that DOORS does not find): a line in the output tab
/// "DOORS" says what was missing.
void LocateInDoors(Doors& doors, const orim::Repository& repository);

}  // namespace kestrune
