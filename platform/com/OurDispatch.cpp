#include "platform/com/OurDispatch.h"

#include <algorithm>

#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "platform/com/Counted.h"
#include "platform/com/Failure.h"

namespace kestrune {

namespace {

class OurDispatch : public Counted<IDispatch> {
 public:
  explicit OurDispatch(std::shared_ptr<Dispatch> object) : object_(std::move(object)) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* answer,
                                   EXCEPINFO* info, UINT*) override;

 private:
  DISPID IdOf(TextView name);
  Variant Use(const Text& member, WORD flags, Args args) const;

  std::shared_ptr<Dispatch> object_;
  std::vector<Text> names_;  // their ids count from 1
};

Args ArgumentsOf(const DISPPARAMS& params) {
  Args args;
  for (UINT i = params.cArgs; i > 0; --i) args.push_back(FromComVariant(params.rgvarg[i - 1]));
  return args;
}

HRESULT OurDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  return Guarded([&] {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    ids[0] = IdOf(FromWide(names[0]));
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // the others name arguments
  });
}

DISPID OurDispatch::IdOf(TextView name) {
  const auto known = std::find(names_.begin(), names_.end(), name);
  const auto id = static_cast<DISPID>(known - names_.begin()) + 1;
  if (known == names_.end()) names_.emplace_back(name);
  return id;
}

HRESULT OurDispatch::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* answer,
                            EXCEPINFO* info, UINT*) {
  if (id < 1 || static_cast<std::size_t>(id) > names_.size()) return DISP_E_MEMBERNOTFOUND;
  const bool is_put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
  if (params->cNamedArgs > (is_put ? 1 : 0)) return DISP_E_NONAMEDARGS;
  const auto use = [&] {
    const Text member = names_[static_cast<std::size_t>(id) - 1];  // a copy: calls may come meanwhile
    ComVariant used(Use(member, flags, ArgumentsOf(*params)));
    if (answer) *answer = used.Release();
    return S_OK;
  };
  return Guarded(use, [&](const AutomationError& failure) { return FillIn(info, failure); });
}

Variant OurDispatch::Use(const Text& member, WORD flags, Args args) const {
  if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF))
    return object_->Invoke(Access::kPut, member, std::move(args));
  if (!(flags & DISPATCH_METHOD)) return object_->Invoke(Access::kGet, member, std::move(args));
  if (!(flags & DISPATCH_PROPERTYGET)) return object_->Invoke(Access::kCall, member, std::move(args));
  try {
    return object_->Invoke(Access::kCall, member, args);
  } catch (const AutomationError& error) {
    if (error.Number != error::kUnknownMember) throw;
    return object_->Invoke(Access::kGet, member, std::move(args));
  }
}

}  // namespace

ComPtr<IDispatch> MakeOurDispatch(std::shared_ptr<Dispatch> object) {
  ComPtr<IDispatch> made;
  *made.Out() = new OurDispatch(std::move(object));
  return made;
}

}  // namespace kestrune
