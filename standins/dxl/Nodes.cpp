#include "standins/dxl/Nodes.h"

namespace kestrune::dxl {

Value BinaryNode::Evaluate(Machine& machine) const {
  const Value left = left_->Evaluate(machine);
  const Value right = right_->Evaluate(machine);
  try {
    return run_(left, right);
  } catch (const ScriptError& error) {
    return machine.Fail(at, error.message, result_);
  }
}

Value ExtendNode::Evaluate(Machine& machine) const {
  const Value before = target_->Evaluate(machine);
  const Value more = more_->Evaluate(machine);  // which may change the variable
  Value& target = *target_->Locate(machine);
  try {
    if (target.OnlySharesTextWith(before)) {
      target.AppendInPlace(more.AsText());
    } else {
      Text text = before.AsText();
      Append(text, more.AsText());
      target = Value(std::move(text));
    }
  } catch (const ScriptError& error) {
    machine.Fail(at, error.message, kVoid);
    target = Value::Default(kString);
  }
  return target;
}

Value CompoundNode::Evaluate(Machine& machine) const {
  const Value right = source_->Evaluate(machine);
  Value& target = *target_->Locate(machine);
  const Value left = target_->Read(target, machine);
  try {
    return target = run_(left, right);
  } catch (const ScriptError& error) {
    return machine.Fail(at, error.message, left.Kind());
  }
}

Value StepNode::Evaluate(Machine& machine) const {
  Value& target = *target_->Locate(machine);
  const Value before = target_->Read(target, machine);
  const auto stepped = static_cast<std::uint32_t>(before.AsInt()) + static_cast<std::uint32_t>(by_);
  const Value after(static_cast<std::int32_t>(stepped));
  target = after;
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
