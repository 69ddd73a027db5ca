// The add-in's class as COM knows it: each callback is handed on to the portable OrimDoors, and what that
// throws becomes the call's result.
#pragma once

#include <Kestrune_h.h>
#include <windows.h>

#include "addin/OrimDoors.h"
#include "addin/com/ModuleLock.h"
#include "platform/com/ComObjectFactory.h"
#include "platform/com/ComPtr.h"
#include "platform/com/Counted.h"
#include "platform/windows/Win32Desktop.h"
#include "platform/windows/Win32Folders.h"

namespace kestrune {

class ComOrimDoors : public Counted<_OrimDoors, ISupportErrorInfo> {
 public:
  HRESULT STDMETHODCALLTYPE Orim_Connect(IDispatch** Repository, BSTR* Result) override;
  HRESULT STDMETHODCALLTYPE Orim_Disconnect() override;
  HRESULT STDMETHODCALLTYPE Orim_OnPostInitialized(IDispatch** Repository, VARIANT* Result) override;
  HRESULT STDMETHODCALLTYPE Orim_GetMenuItems(IDispatch** Repository, BSTR* MenuLocation, BSTR MenuName,
                                              VARIANT* Result) override;
  HRESULT STDMETHODCALLTYPE Orim_MenuClick(IDispatch** Repository, BSTR MenuName, BSTR ItemName) override;
  HRESULT STDMETHODCALLTYPE Orim_ShowHelp(BSTR MenuName, BSTR ItemName) override;
  HRESULT STDMETHODCALLTYPE Plexa_View(IDispatch** Repository, BSTR* PackageGuid, BSTR* CodeID,
                                       long* Result) override;
  HRESULT STDMETHODCALLTYPE Plexa_Connect(IDispatch** Repository, long* PackageID, BSTR* PackageGuid,
                                          long* Result) override;
  HRESULT STDMETHODCALLTYPE Plexa_GetConnectedPackages(IDispatch** Repository, VARIANT* Result) override;
  HRESULT STDMETHODCALLTYPE Plexa_GetProperty(IDispatch** Repository, BSTR* PackageGuid, BSTR* PropertyName,
                                              VARIANT* Result) override;
  HRESULT STDMETHODCALLTYPE Plexa_Disconnect(IDispatch** Repository, BSTR* PackageGuid,
                                             VARIANT_BOOL* Result) override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* answer,
                                   EXCEPINFO* info, UINT* wrong_argument) override;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

 private:
  /// Runs `work`, which no exception leaves; object and module stay until it returns. The host is answered
  /// what `work` returns; nothing; what is put to `place`, which a failure leaves empty.
  template <typename Work>
  HRESULT Held(Work work);
  template <typename Work>
  HRESULT Done(Work work);
  template <typename Result, typename Work>
  HRESULT Answered(Result* place, Work work);

  const ComPtr<ITypeInfo>& Description();

  const ModuleLock lock_;
  Win32Desktop desktop_;
  const Win32Folders folders_;
  ComObjectFactory objects_;
  const Platform platform_{desktop_, folders_, objects_};
  OrimDoors add_in_{platform_};
  ComPtr<ITypeInfo> description_;  // none before the first late-bound call
};

}  // namespace kestrune
