#include "tests/windows/com/DllUnderTest.h"

#include <Kestrune_h.h>

#include "platform/com/ComText.h"
#include "platform/com/Failure.h"

namespace kestrune::testing {

HMODULE Dll() {
  static const HMODULE dll = LoadLibraryW(L"" KESTRUNE_DLL);
  if (!dll) Require(HRESULT_FROM_WIN32(GetLastError()));
  return dll;
}

Text DllPath() {
  wchar_t path[MAX_PATH] = L"";
  const DWORD length = GetModuleFileNameW(Dll(), path, MAX_PATH);
  return Text(FromWide({path, length}));
}

HRESULT Install(BOOL install, const wchar_t* audience) {
  return Export<HRESULT STDMETHODCALLTYPE(BOOL, const wchar_t*)>("DllInstall")(install, audience);
}
HRESULT RegisterServer() {
  return Export<HRESULT STDMETHODCALLTYPE()>("DllRegisterServer")();
}
HRESULT UnregisterServer() {
  return Export<HRESULT STDMETHODCALLTYPE()>("DllUnregisterServer")();
}

ComPtr<IClassFactory> Factory(HMODULE dll) {
  ComPtr<IClassFactory> factory;
  const auto get = Export<HRESULT STDMETHODCALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject", dll);
  Require(get(__uuidof(::OrimDoors), IID_IClassFactory, factory.OutVoid()));
  return factory;
}

ComPtr<IDispatch> NewAddIn(HMODULE dll) {
  ComPtr<IDispatch> add_in;
  Require(Factory(dll)->CreateInstance(nullptr, IID_IDispatch, add_in.OutVoid()));
  return add_in;
}

}  // namespace kestrune::testing
