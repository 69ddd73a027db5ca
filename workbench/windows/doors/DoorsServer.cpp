#include "workbench/windows/doors/DoorsServer.h"

#include <utility>

#include "platform/win32/ComVariant.h"
#include "platform/win32/Counted.h"
#include "platform/win32/Failure.h"

namespace kestrune::workbench {

namespace {

class Factory : public Counted<IClassFactory> {
 public:
  explicit Factory(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
    *out = nullptr;
    return outer ? CLASS_E_NOAGGREGATION : object_->QueryInterface(iid, out);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }  // it ends when its user ends it

 private:
  ComPtr<IDispatch> object_;
};

}  // namespace

DoorsServer::DoorsServer(const Object& application) {
  ComPtr<IClassFactory> factory;
  *factory.Out() = new Factory(ToDispatch(application));
  Require(
      CoRegisterClassObject(kDoorsClassId, factory.Get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &cookie_));
}

void DoorsServer::Revoke() {
  if (cookie_) CoRevokeClassObject(std::exchange(cookie_, 0));
}

}  // namespace kestrune::workbench
