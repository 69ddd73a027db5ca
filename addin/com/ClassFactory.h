// Makes the add-in's objects for COM.
#pragma once

#include <windows.h>

#include "addin/com/ModuleLock.h"
#include "platform/com/Counted.h"

namespace kestrune {

class ClassFactory : public Counted<IClassFactory> {
 public:
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  const ModuleLock lock_;
};

}  // namespace kestrune
