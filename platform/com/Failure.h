// Failures on their way out through COM, which no C++ exception may cross.
#pragma once

#include <oaidl.h>
#include <utility>

#include "platform/Automation.h"

namespace kestrune {

/// Throws the failure of a call of the system; its description is the system's, and what it is `about`, if
/// anything.
void Require(HRESULT result, TextView about = {});

/// Throws the failure of the call before it, one that does not answer with an HRESULT.
[[noreturn]] void ThrowLastError();

/// The exception being handled, whatever its type, as automation reports it. Only inside of a catch.
AutomationError CurrentFailure();

/// Puts number, source and description into `info`, which may be null; returns DISP_E_EXCEPTION.
HRESULT FillIn(EXCEPINFO* info, const AutomationError& failure);

/// Leaves source and description to the thread, for the caller of a method to pick up; returns the number.
HRESULT LeaveErrorInfo(const AutomationError& failure);

/// What a method answers its caller: what `work` returns or, where that throws, what `tell` makes of the
/// failure. Telling takes memory, too: where there is none, the number alone is told.
template <typename Work, typename Tell>
HRESULT Guarded(Work work, Tell tell) noexcept {
  try {
    try {
      return work();
    } catch (...) {
      return tell(CurrentFailure());
    }
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}
template <typename Work>
HRESULT Guarded(Work work) noexcept {
  return Guarded(std::move(work), LeaveErrorInfo);
}

}  // namespace kestrune
