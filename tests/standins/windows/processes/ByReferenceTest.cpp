#include <gtest/gtest.h>

#include "platform/com/ComVariant.h"
#include "platform/com/Counted.h"
#include "standins/windows/host/ByReference.h"

namespace kestrune::testing {
namespace {

/// Remembers how it was called, and writes over the whole numbers that it can write to.
class Callee : public Counted<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
    *ids = 7;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT* answer,
                                   EXCEPINFO*, UINT*) override {
    for (UINT i = params->cArgs; i > 0; --i) {
      const VARIANT& argument = params->rgvarg[i - 1];
      types.push_back(argument.vt);
      values.push_back(FromComVariant(argument).ToText());
      if (argument.vt == (VT_BYREF | VT_I4)) *argument.plVal = -1;
    }
    *answer = ComVariant(Variant(static_cast<std::int32_t>(id))).Release();
    return S_OK;
  }

  std::vector<VARTYPE> types;
  std::vector<Text> values;
};

TEST(ByReference, HandsOverWhatTheCalleeMayWriteTo) {
  ComPtr<Callee> callee;
  *callee.Out() = new Callee;
  const Object called = standins::ByReference(FromDispatch(callee.Get()));
  EXPECT_EQ(called.Call(u"Any", {std::int32_t(12), Variant(u"text"), true}).ToInt(), 7);
  EXPECT_EQ(callee->types, (std::vector<VARTYPE>{VT_BYREF | VT_I4, VT_BYREF | VT_BSTR, VT_BYREF | VT_BOOL}));
  EXPECT_EQ(callee->values, (std::vector<Text>{u"12", u"text", Variant(true).ToText()}));
}

}  // namespace
}  // namespace kestrune::testing
