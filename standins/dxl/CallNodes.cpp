#include "standins/dxl/CallNodes.h"

#include <array>

namespace kestrune::dxl {

Value PermNode::Evaluate(Machine& machine) const {
  std::array<Value, Library::kMaxParameters> arguments;
  try {
    for (std::size_t i = 0; i < arguments_.size(); ++i) arguments[i] = Argument(i, machine);
    Call call(machine.State(), {arguments.data(), arguments_.size()}, types_);
    return Promised(perm_.run(call), perm_.result);
  } catch (const ScriptError& error) {
    return machine.Fail(at, error.message, perm_.result);
  }
}

/// Throws ScriptError for a null handle that the perm does not welcome.
Value PermNode::Argument(std::size_t i, Machine& machine) const {
  const Parameter& parameter = perm_.parameters[i];
  if (parameter.by_reference)
    return Value::Reference(static_cast<const Place*>(arguments_[i])->Locate(machine));
  Value value = arguments_[i]->Evaluate(machine);
  const bool refuses_null = IsHandle(parameter.type) && !parameter.may_be_null;
  if (refuses_null && !value.AsHandle()) {
    throw ScriptError(u"null handle given as argument " + ToText(static_cast<long long>(i + 1)) + u" of (" +
                      perm_.name + u")");
  }
  return value;
}

}  // namespace kestrune::dxl
