// The type library that Kestrune.dll carries.
#pragma once

#include <windows.h>

#include "platform/com/ComPtr.h"

namespace kestrune {

/// The description of the interface `iid` in it. Throws AutomationError when there is none.
ComPtr<ITypeInfo> OwnTypeInfo(REFIID iid);

}  // namespace kestrune
