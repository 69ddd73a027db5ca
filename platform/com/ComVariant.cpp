#include "platform/com/ComVariant.h"

#include <cmath>
#include <limits>
#include <new>

#include "platform/com/ComDispatch.h"
#include "platform/com/ComText.h"
#include "platform/com/Failure.h"
#include "platform/com/OurDispatch.h"
#include "platform/com/Owned.h"

namespace kestrune {

namespace {

SAFEARRAY* ToSafeArray(const std::vector<Text>& texts) {
  OwnedArray array(SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size())));
  if (!array) throw std::bad_alloc();
  for (LONG i = 0; i < static_cast<LONG>(texts.size()); ++i)
    Require(SafeArrayPutElement(array.get(), &i, Bstr(texts[static_cast<std::size_t>(i)]).Get()));
  return array.release();
}

Text TextAt(SAFEARRAY* array, VARTYPE type, LONG index) {
  if (type == VT_BSTR) {
    Bstr text;
    Require(SafeArrayGetElement(array, &index, text.Out()));
    return Text(text.View());
  }
  ComVariant value;
  Require(SafeArrayGetElement(array, &index, value.Out()));
  return FromComVariant(value.Get()).ToText();
}

std::vector<Text> FromSafeArray(SAFEARRAY* array) {
  VARTYPE type = VT_EMPTY;
  if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &type)) ||
      (type != VT_BSTR && type != VT_VARIANT))
    Require(DISP_E_TYPEMISMATCH);
  LONG first = 0;
  LONG last = -1;
  Require(SafeArrayGetLBound(array, 1, &first));
  Require(SafeArrayGetUBound(array, 1, &last));
  std::vector<Text> texts;
  for (LONG i = first; i <= last; ++i) texts.push_back(TextAt(array, type, i));
  return texts;
}

ComVariant Converted(const VARIANT& value, VARTYPE type) {
  ComVariant converted;
  Require(VariantChangeType(converted.Out(), const_cast<VARIANT*>(&value), 0, type));
  return converted;
}

Variant FromNumber(const VARIANT& value) {
  const double number = Converted(value, VT_R8).Get().dblVal;
  const bool is_whole = std::trunc(number) == number && number >= std::numeric_limits<std::int32_t>::min() &&
                        number <= std::numeric_limits<std::int32_t>::max();
  return is_whole ? Variant(static_cast<std::int32_t>(number)) : Variant(number);
}

}  // namespace

ComVariant::ComVariant(const Variant& value) {
  VariantInit(&value_);
  if (value.IsBool()) {
    value_.boolVal = value.ToBool() ? VARIANT_TRUE : VARIANT_FALSE;
    value_.vt = VT_BOOL;
  } else if (value.IsInt()) {
    value_.lVal = value.ToInt();
    value_.vt = VT_I4;
  } else if (value.IsDouble()) {
    value_.dblVal = value.ToDouble();
    value_.vt = VT_R8;
  } else if (value.IsText()) {
    value_.bstrVal = Bstr(value.AsText()).Release();
    value_.vt = VT_BSTR;
  } else if (value.IsObject()) {
    value_.pdispVal = ToDispatch(value.ToObject()).Release();
    value_.vt = VT_DISPATCH;
  } else if (value.IsTextArray()) {
    value_.parray = ToSafeArray(value.ToTextArray());
    value_.vt = VT_ARRAY | VT_BSTR;
  }
}

VARIANT ComVariant::Release() {
  VARIANT released = value_;
  VariantInit(&value_);
  return released;
}

ComVariant Followed(const VARIANT& value) {
  const VARIANT* at = &value;
  if (at->vt == (VT_BYREF | VT_VARIANT) && at->pvarVal) at = at->pvarVal;
  if ((at->vt & VT_BYREF) && !at->byref) Require(DISP_E_TYPEMISMATCH);
  ComVariant followed;
  Require(VariantCopyInd(followed.Out(), const_cast<VARIANT*>(&value)));
  return followed;
}

Variant FromComVariant(const VARIANT& value) {
  if (value.vt & VT_BYREF) return FromComVariant(Followed(value).Get());
  if (value.vt & VT_ARRAY) return FromSafeArray(value.parray);
  switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_ERROR:
      return value.scode == DISP_E_PARAMNOTFOUND
                 ? Variant()
                 : throw AutomationError(error::kTypeMismatch, u"Kestrune", SystemMessage(value.scode));
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_R4:
      return static_cast<double>(value.fltVal);
    case VT_R8:
      return value.dblVal;
    case VT_CY:
    case VT_DECIMAL:
      return Converted(value, VT_R8).Get().dblVal;
    case VT_BSTR:
      return Text(ViewOf(value.bstrVal));
    case VT_DATE:
      return Text(ViewOf(Converted(value, VT_BSTR).Get().bstrVal));
    case VT_DISPATCH:
      return FromDispatch(value.pdispVal);
    case VT_UNKNOWN:
      return FromDispatch(Converted(value, VT_DISPATCH).Get().pdispVal);
    default:
      return FromNumber(value);
  }
}

Object FromDispatch(IDispatch* object) {
  return object ? Object(std::make_shared<ComDispatch>(ComPtr<IDispatch>(object))) : Object();
}

ComPtr<IDispatch> ToDispatch(const Object& object) {
  if (!object) return {};
  if (const auto* foreign = dynamic_cast<const ComDispatch*>(object.Peer().get())) return foreign->Far();
  return MakeOurDispatch(object.Peer());
}

}  // namespace kestrune
