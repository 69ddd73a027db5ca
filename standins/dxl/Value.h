// A run-time value: a scalar, a text (shared, never changed while it is), an array, or
// an opaque counted handle.
#pragma once

#include <memory>
#include <vector>

#include "standins/dxl/Budget.h"
#include "standins/dxl/Type.h"

namespace kestrune::dxl {

class Value {
 public:
  Value() = default;  // unassigned; the result of a void perm
  Value(bool value) : type_(kBool) { scalar_.boolean = value; }
  Value(char16_t value) : type_(kChar) { scalar_.character = value; }
  Value(std::int32_t value) : type_(kInt) { scalar_.integer = value; }
  Value(double value) : type_(kReal) { scalar_.real = value; }
  /// Counts as work and as memory of the run under way.
  Value(Text value);
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
  const Text& AsText() const {
    return shared_ ? static_cast<const KeptText*>(shared_.get())->text : kEmptyText;
  }
  std::vector<Value>& AsArray() const { return *static_cast<std::vector<Value>*>(shared_.get()); }
  Value* AsReference() const { return scalar_.reference; }
  const std::shared_ptr<void>& AsHandle() const { return shared_; }

  /// Whether nobody but this value and `copy` hold the text.
  bool OnlySharesTextWith(const Value& copy) const {
    return shared_ && shared_ == copy.shared_ && shared_.use_count() == 2;
  }
  /// Makes the text longer in its place, for a text that nobody else holds. Throws as Append does.
  void AppendInPlace(TextView more);

  /// Puts its type on a handle that is still untyped.
  void SetHandleType(Type type) { type_ = type; }

 private:
  struct KeptText {
    explicit KeptText(Text given);
    Text text;
    Lease lease;
  };

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

/// A handle to an object of its own, which counts as memory of the run under way.
template <typename T>
Value NewHandle(T object) {
  struct Kept {
    explicit Kept(T&& given) : object(std::move(given)), lease(sizeof(Kept) + 48) {}
    T object;
    Lease lease;
  };
  auto kept = std::make_shared<Kept>(std::move(object));
  return Value(std::shared_ptr<T>(kept, &kept->object));
}

/// What a text takes beside itself.
std::size_t BytesOf(const Text& text);

}  // namespace kestrune::dxl
