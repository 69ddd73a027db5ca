// The functions by which COM and the registration programs reach Kestrune.dll.
#include <Kestrune_h.h>
#include <Kestrune_i.c>
#include <optional>
#include <windows.h>

#include "addin/com/ClassFactory.h"
#include "addin/com/Registration.h"
#include "platform/com/ComPtr.h"
#include "platform/com/Failure.h"

using kestrune::Audience;

namespace {

HRESULT Reported(void (*change)(Audience), Audience audience) {
  return kestrune::Guarded([=] {
    change(audience);
    return S_OK;
  });
}

/// Whom the text after "/i:" means; the user alone when there is none.
std::optional<Audience> AudienceOf(PCWSTR text) {
  if (!text || !*text || lstrcmpiW(text, L"user") == 0) return Audience::kUser;
  if (lstrcmpiW(text, L"machine") == 0) return Audience::kMachine;
  return std::nullopt;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID class_id, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (class_id != __uuidof(OrimDoors)) return CLASS_E_CLASSNOTAVAILABLE;
  kestrune::ComPtr<kestrune::ClassFactory> factory;
  *factory.Out() = new (std::nothrow) kestrune::ClassFactory;
  return factory ? factory->QueryInterface(iid, out) : E_OUTOFMEMORY;
}

STDAPI DllCanUnloadNow() {
  return kestrune::ModuleLock::IsAny() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
  return Reported(kestrune::Register, Audience::kUser);
}

STDAPI DllUnregisterServer() {
  return Reported(kestrune::Unregister, Audience::kUser);
}

STDAPI DllInstall(BOOL install, PCWSTR text) {
  const auto audience = AudienceOf(text);
  if (!audience) return E_INVALIDARG;
  return Reported(install ? kestrune::Register : kestrune::Unregister, *audience);
}
