#include "tests/windows/com/LateCall.h"

#include "platform/com/ComText.h"

namespace kestrune::testing {

namespace {

VARIANT Passed(ComVariant& owner, Passing passing) {
  if (passing == Passing::kByValue) return owner.Get();
  VARIANT reference = {};
  if (passing == Passing::kVariantByReference) {
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = owner.Out();
  } else {
    reference.vt = VT_BYREF | owner.Get().vt;
    reference.byref = &owner.Out()->lVal;  // a value of any type starts at the same place
  }
  return reference;
}

std::string Joined(const std::vector<Text>& texts) {
  Text joined;
  for (const Text& text : texts) joined += (joined.empty() ? u"" : u"|") + text;
  return ToUtf8(joined);
}

std::string Shown(const VARIANT& value) {
  const Variant ours = FromComVariant(value);
  switch (value.vt) {
    case VT_EMPTY:
      return "EMPTY";
    case VT_I4:
      return "I4 " + ToUtf8(ours.ToText());
    case VT_BSTR:
      return "BSTR " + ToUtf8(ours.ToText());
    case VT_BOOL:
      return "BOOL " + std::to_string(value.boolVal);
    case VT_ARRAY | VT_BSTR:
      return "BSTR[] " + Joined(ours.ToTextArray());
    default:
      return "type " + std::to_string(value.vt);
  }
}

std::string Taken(BSTR text) {
  std::string taken = ToUtf8(ViewOf(text));
  SysFreeString(text);
  return taken;
}

}  // namespace

Args With(const Object& repository, const Args& args) {
  Args all = {repository};
  for (const Variant& arg : args) all.push_back(arg);
  return all;
}

LateAnswer CallLate(IDispatch& object, const wchar_t* name, const Args& args, Passing passing) {
  LateAnswer answer;
  DISPID id = DISPID_UNKNOWN;
  answer.result = object.GetIDsOfNames(IID_NULL, const_cast<wchar_t**>(&name), 1, LOCALE_NEUTRAL, &id);
  if (FAILED(answer.result)) return answer;

  std::vector<ComVariant> owners;
  std::vector<VARIANT> passed;
  owners.reserve(args.size());
  for (auto arg = args.rbegin(); arg != args.rend(); ++arg)
    passed.push_back(Passed(owners.emplace_back(*arg), passing));
  DISPPARAMS params = {passed.data(), nullptr, static_cast<UINT>(passed.size()), 0};
  ComVariant value;
  EXCEPINFO info = {};
  answer.result = object.Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &params,
                                value.Out(), &info, &answer.wrong_argument);
  answer.value = Shown(value.Get());
  answer.number = info.scode;
  answer.source = Taken(info.bstrSource);
  answer.description = Taken(info.bstrDescription);
  return answer;
}

}  // namespace kestrune::testing
