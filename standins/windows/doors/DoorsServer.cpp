#include "standins/windows/doors/DoorsServer.h"

#include <utility>

#include "platform/com/ComVariant.h"
#include "platform/com/Counted.h"
#include "platform/com/Failure.h"

namespace kestrune::standins {

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

}  // namespace kestrune::standins
