// Arguments by reference, as hosts written in Basic pass their variables.
#pragma once

#include "platform/Automation.h"

namespace kestrune::standins {

/// The same COM object; what its methods are given through this, they may write to.
/// What they write is dropped.
Object ByReference(const Object& far_object);

}  // namespace kestrune::standins
