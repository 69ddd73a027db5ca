#include "addin/com/ClassFactory.h"

#include "addin/com/ComOrimDoors.h"
#include "platform/com/ComPtr.h"
#include "platform/com/Failure.h"

namespace kestrune {

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  return Guarded([&] {
    ComPtr<ComOrimDoors> object;
    *object.Out() = new ComOrimDoors;
    return object->QueryInterface(iid, out);
  });
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  lock ? ModuleLock::Add() : ModuleLock::Remove();
  return S_OK;
}

}  // namespace kestrune
