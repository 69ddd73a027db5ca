// Kestrune.dll as its clients find it.
#pragma once

#include <windows.h>

#include "platform/Text.h"
#include "platform/com/ComPtr.h"

namespace kestrune::testing {

HMODULE Dll();
Text DllPath();

template <typename Function>
Function* Export(const char* name, HMODULE dll = Dll()) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(dll, name)));
}

/// What regsvr32 calls: for "/i:machine", for "/i:user", or with no "/i" at all.
HRESULT Install(BOOL install, const wchar_t* audience);
HRESULT RegisterServer();
HRESULT UnregisterServer();

/// The add-in, made without the registry by the DLL or by a copy of it.
ComPtr<IClassFactory> Factory(HMODULE dll = Dll());
ComPtr<IDispatch> NewAddIn(HMODULE dll = Dll());

}  // namespace kestrune::testing
