// One call of a perm: its arguments, as the perm's signature promises them, and the run it is part of.
#pragma once

#include <span>

#include "standins/dxl/Value.h"

namespace kestrune::dxl {

class Host;
struct RunState;

class Call {
 public:
  Call(RunState& state, std::span<Value> arguments, std::span<const Type> types)
      : state_(state), arguments_(arguments), types_(types) {}

  bool Bool(std::size_t i) const { return At(i).AsBool(); }
  char16_t Char(std::size_t i) const { return At(i).AsChar(); }
  std::int32_t Int(std::size_t i) const { return At(i).AsInt(); }
  double Real(std::size_t i) const { return At(i).AsReal(); }
  const Text& String(std::size_t i) const { return At(i).AsText(); }
  /// What a handle points to; null handles never get here, unless the signature has a "?".
  template <typename T>
  T& As(std::size_t i) const {
    return *static_cast<T*>(At(i).AsHandle().get());
  }
  /// The counted pointer itself; null for a null handle.
  template <typename T>
  std::shared_ptr<T> Share(std::size_t i) const {
    return std::static_pointer_cast<T>(At(i).AsHandle());
  }

  /// The argument; for a by-reference one the variable's present value, which may be unassigned.
  const Value& At(std::size_t i) const {
    const Value& argument = arguments_[i];
    return argument.Kind() == kReference ? *argument.AsReference() : argument;
  }
  /// Assigns the variable given for a by-reference parameter. Throws ScriptError when a value of type any
  /// turns out not to be of the variable's type.
  void Set(std::size_t i, Value value);
  std::size_t Count() const { return arguments_.size(); }
  /// The static type of an argument, for parameters of type any.
  Type TypeOf(std::size_t i) const { return types_[i]; }

  RunState& State() const { return state_; }

 private:
  RunState& state_;
  std::span<Value> arguments_;
  std::span<const Type> types_;
};

/// What a perm or a loop gave, as its signature promises it: handles under their type. Throws std::logic_error
/// for a value of another type, which is a mistake in the perm.
Value Promised(Value value, Type type);

}  // namespace kestrune::dxl
