// A run-time value: a scalar, a text (shared, never changed), an array, or an opaque counted handle.
#pragma once

#include <memory>
#include <vector>

#include "platform/Text.h"
#include "standins/dxl/Type.h"

namespace kestrune::dxl {

class Value {
 public:
  Value() = default;  // unassigned; as the result of a perm: nothing, null, 0, "" or false
  Value(bool value) : type_(kBool) { scalar_.boolean = value; }
  Value(char16_t value) : type_(kChar) { scalar_.character = value; }
  Value(std::int32_t value) : type_(kInt) { scalar_.integer = value; }
  Value(double value) : type_(kReal) { scalar_.real = value; }
  Value(Text value) : type_(kString), shared_(std::make_shared<Text>(std::move(value))) {}
  Value(TextView value) : Value(Text(value)) {}
  Value(const char16_t* value) : Value(Text(value)) {}
  /// A handle; a null pointer is the null handle. The interpreter gives it the type that the perm's signature
  /// promises. Two handles are the same object to a script when they share the pointer.
  template <typename T>
  Value(std::shared_ptr<T> handle) : type_(kUntypedHandle), shared_(std::move(handle)) {}
  template <typename T>
  Value(T*) = delete;  // a pointer would turn into true

  /// What null, or a failed perm, gives for `type`: false, 0, "", the null handle.
  static Value Default(Type type) { return Value(type); }
  static Value Array(Type element, std::size_t size);
  static Value Reference(Value* target);

  Type Kind() const { return type_; }
  bool IsAssigned() const { return type_ != kNone; }

  // Only for a value of the type in question.
  bool AsBool() const { return scalar_.boolean; }
  char16_t AsChar() const { return scalar_.character; }
  std::int32_t AsInt() const { return scalar_.integer; }
  double AsReal() const { return scalar_.real; }
  const Text& AsText() const { return shared_ ? *static_cast<const Text*>(shared_.get()) : kEmptyText; }
  std::vector<Value>& AsArray() const { return *static_cast<std::vector<Value>*>(shared_.get()); }
  Value* AsReference() const { return scalar_.reference; }
  const std::shared_ptr<void>& AsHandle() const { return shared_; }

  /// Puts its type on a handle that is still untyped.
  void SetHandleType(Type type) { type_ = type; }

 private:
  explicit Value(Type type) : type_(type) {}

  static const Text kEmptyText;

  union Scalar {
    double real = 0;
    bool boolean;
    char16_t character;
    std::int32_t integer;
    Value* reference;
  };

  Type type_;
  Scalar scalar_{};
  std::shared_ptr<void> shared_;  // of a text, an array, a handle
};

}  // namespace kestrune::dxl
