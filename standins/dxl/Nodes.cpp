#include "standins/dxl/Nodes.h"

namespace kestrune::dxl {

Value BinaryNode::Evaluate(Machine& machine) const {
  const Value left = left_->Evaluate(machine);
  const Value right = right_->Evaluate(machine);
  try {
    return run_(left, right);
  } catch (const ScriptError& error) {
    return machine.Fail(at, error.Message, result_);
  }
}

Value CompoundNode::Evaluate(Machine& machine) const {
  const Value right = source_->Evaluate(machine);
  const Value left = target_->Evaluate(machine);
  try {
    return *target_->Locate(machine) = run_(left, right);
  } catch (const ScriptError& error) {
    return machine.Fail(at, error.Message, left.Kind());
  }
}

Value StepNode::Evaluate(Machine& machine) const {
  const Value before = target_->Evaluate(machine);
  const auto stepped = static_cast<std::uint32_t>(before.AsInt()) + static_cast<std::uint32_t>(by_);
  const Value after(static_cast<std::int32_t>(stepped));
  *target_->Locate(machine) = after;
  return gives_old_ ? before : after;
}

Value CheckedCastNode::Evaluate(Machine& machine) const {
  Value value = kid_->Evaluate(machine);
  return value.Kind() == type_ ? value : machine.Fail(at, u"value of another type than expected", type_);
}

Value SizeofNode::Evaluate(Machine& machine) const {
  const Value array = array_->Evaluate(machine);
  return Value(array.Kind().is_array ? static_cast<std::int32_t>(array.AsArray().size()) : 0);
}

}  // namespace kestrune::dxl
