// Hands one of our automation objects out to other programs, as an IDispatch.
#pragma once

#include <oaidl.h>

#include "platform/Automation.h"
#include "platform/com/ComPtr.h"

namespace kestrune {

/// Any name gets an id, since our objects tell only when they are used what members they have; a
/// member that is not there is refused then. A use that may be a call or a reading is taken for a call
/// if the object knows the call. Failures leave as an exception with number, source and description.
/// Arguments are taken by value.
ComPtr<IDispatch> MakeOurDispatch(std::shared_ptr<Dispatch> object);

}  // namespace kestrune
