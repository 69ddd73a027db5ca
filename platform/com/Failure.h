// Failures on their way out through COM, which no C++ exception may cross.
#pragma once

#include <oaidl.h>

#include "platform/Automation.h"

namespace kestrune {

/// Throws the failure of a call of the system; its description is the system's.
void Require(HRESULT result);

/// The exception being handled, whatever its type, as automation reports it. Only inside of a catch.
AutomationError CurrentFailure();

/// Puts number, source and description into `info`, which may be null; returns DISP_E_EXCEPTION.
HRESULT FillIn(EXCEPINFO* info, const AutomationError& failure);

/// Leaves source and description to the thread, for the caller of a method to pick up; returns the number.
HRESULT LeaveErrorInfo(const AutomationError& failure);

}  // namespace kestrune
