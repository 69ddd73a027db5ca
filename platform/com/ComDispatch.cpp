#include "platform/com/ComDispatch.h"

#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "platform/com/Failure.h"

namespace kestrune {

namespace {

constexpr SCODE kFacilityControl =
    static_cast<SCODE>(0x800A0000);  // of errors that have a 16-bit number only

WORD FlagsOf(Access access) {
  switch (access) {
    case Access::kGet:
      return DISPATCH_PROPERTYGET;
    case Access::kPut:
      return DISPATCH_PROPERTYPUT;
    case Access::kCall:
      return DISPATCH_METHOD;
  }
  throw std::logic_error("no such access");
}

/// An EXCEPINFO with its owner.
struct ExceptionInfo : EXCEPINFO {
  ExceptionInfo() : EXCEPINFO{} {}
  ExceptionInfo(const ExceptionInfo&) = delete;
  ExceptionInfo& operator=(const ExceptionInfo&) = delete;
  ~ExceptionInfo() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
  }
};

[[noreturn]] void ThrowRaised(ExceptionInfo& raised) {
  if (raised.pfnDeferredFillIn) raised.pfnDeferredFillIn(&raised);
  const SCODE number = raised.scode ? raised.scode : kFacilityControl | raised.wCode;
  const TextView description = ViewOf(raised.bstrDescription);
  throw AutomationError(static_cast<std::uint32_t>(number), Text(ViewOf(raised.bstrSource)),
                        description.empty() ? SystemMessage(number) : Text(description));
}

/// The arguments as a call passes them: the last one first.
class Arguments {
 public:
  explicit Arguments(const Args& args) {
    owners_.reserve(args.size());
    for (auto arg = args.rbegin(); arg != args.rend(); ++arg)
      values_.push_back(owners_.emplace_back(*arg).Get());
  }
  DISPPARAMS For(Access access) {
    DISPPARAMS params{values_.data(), nullptr, static_cast<UINT>(values_.size()), 0};
    if (access == Access::kPut) {
      params.rgdispidNamedArgs = &put_;
      params.cNamedArgs = 1;
    }
    return params;
  }

 private:
  std::vector<ComVariant> owners_;
  std::vector<VARIANT> values_;
  DISPID put_ = DISPID_PROPERTYPUT;
};

}  // namespace

Variant ComDispatch::Invoke(Access access, TextView member, Args args) {
  const DISPID id = IdOf(member);
  Arguments arguments(args);
  DISPPARAMS params = arguments.For(access);
  ComVariant answer;
  ExceptionInfo raised;
  UINT wrong_argument = 0;
  const HRESULT result =
      far_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, FlagsOf(access), &params,
                   access == Access::kPut ? nullptr : answer.Out(), &raised, &wrong_argument);
  if (result == DISP_E_EXCEPTION) ThrowRaised(raised);
  Require(result, member);
  return FromComVariant(answer.Get());
}

DISPID ComDispatch::IdOf(TextView member) {
  const auto known = ids_.find(member);
  if (known != ids_.end()) return known->second;
  Text name(member);
  auto* names = reinterpret_cast<wchar_t*>(name.data());
  DISPID id = DISPID_UNKNOWN;
  Require(far_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), member);
  return ids_.emplace(member, id).first->second;
}

}  // namespace kestrune
