// A Kestrune.dll whose registration fails at its end, so that all it had written, and what an earlier one had, is taken
// away again.
#include <Kestrune_i.c>
#include <windows.h>

#include "addin/com/Registration.h"

using kestrune::Audience;

extern "C" __declspec(dllexport) HRESULT __stdcall DllInstall(BOOL install, PCWSTR text) {
  const Audience audience = lstrcmpiW(text, L"machine") == 0 ? Audience::kMachine : Audience::kUser;
  kestrune::Register(audience);
  kestrune::Unregister(audience);
  return install ? E_ACCESSDENIED : S_OK;
}
