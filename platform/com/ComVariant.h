// A VARIANT with its owner, and its conversion to and from our Variant.
#pragma once

#include <windows.h>

#include "platform/Automation.h"
#include "platform/com/ComPtr.h"

namespace kestrune {

class ComVariant {
 public:
  ComVariant() { VariantInit(&value_); }
  /// Throws AutomationError for an object that cannot be handed out.
  explicit ComVariant(const Variant& value);
  ComVariant(ComVariant&& other) noexcept : value_(other.Release()) {}
  ComVariant& operator=(ComVariant&&) = delete;
  ~ComVariant() { VariantClear(&value_); }

  const VARIANT& Get() const { return value_; }
  /// Where a call puts its result; only while this is empty.
  VARIANT* Out() { return &value_; }
  /// Gives the value to the caller.
  VARIANT Release();

 private:
  VARIANT value_;
};

/// What a VARIANT holds or refers to, by value. Throws AutomationError for a reference to nothing, which no function of
/// the system takes unharmed, and for what cannot be copied.
ComVariant Followed(const VARIANT& value);

/// What a VARIANT holds, references followed: Null and a left-out argument are empty; whole numbers that need
/// more than 32 bits, currency and decimals become doubles, a date its text. Throws AutomationError
/// kTypeMismatch for what has no counterpart.
Variant FromComVariant(const VARIANT& value);

/// The object behind an IDispatch, and back: our own objects are handed out through OurDispatch.
Object FromDispatch(IDispatch* object);
ComPtr<IDispatch> ToDispatch(const Object& object);

}  // namespace kestrune
