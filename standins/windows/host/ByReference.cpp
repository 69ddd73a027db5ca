#include "standins/windows/host/ByReference.h"

#include "platform/com/ComVariant.h"
#include "platform/com/Counted.h"

namespace kestrune::standins {

namespace {

class Referrer : public Counted<IDispatch> {
 public:
  explicit Referrer(ComPtr<IDispatch> object) : far_(std::move(object)) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return far_->GetTypeInfoCount(count); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return far_->GetTypeInfo(index, locale, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    return far_->GetIDsOfNames(iid, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params,
                                   VARIANT* answer, EXCEPINFO* info, UINT* wrong) override;

 private:
  ComPtr<IDispatch> far_;
};

/// The caller's own values are referred to; it frees them, as they are after the call.
HRESULT Referrer::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params, VARIANT* answer,
                         EXCEPINFO* info, UINT* wrong) {
  std::vector<VARIANT> references(params->cArgs);
  for (UINT i = 0; i < params->cArgs; ++i) {
    references[i].vt = params->rgvarg[i].vt | VT_BYREF;
    references[i].byref = &params->rgvarg[i].byref;
  }
  DISPPARAMS referring = *params;
  referring.rgvarg = references.data();
  return far_->Invoke(id, iid, locale, flags, &referring, answer, info, wrong);
}

}  // namespace

Object ByReference(const Object& far_object) {
  ComPtr<IDispatch> referrer;
  *referrer.Out() = new Referrer(ToDispatch(far_object));
  return FromDispatch(referrer.Get());
}

}  // namespace kestrune::standins
