#include "standins/dxl/Places.h"

namespace kestrune::dxl {

Value Variable::Evaluate(Machine& machine) const {
  const Value& value = *Locate(machine);
  if (!value.IsAssigned()) return machine.Fail(at, u"unassigned variable (" + name_ + u")", type_);
  return value;
}

Value Element::Evaluate(Machine& machine) const {
  const Value& value = *Locate(machine);
  if (!value.IsAssigned()) return machine.Fail(at, u"unassigned array element", type_);
  return value;
}

Value* Element::Locate(Machine& machine) const {
  const Value index = index_->Evaluate(machine);
  const Value array = array_->Evaluate(machine);
  const auto offset = static_cast<std::size_t>(index.AsInt());  // a negative index becomes too large
  const bool inside = array.Kind().is_array && offset < array.AsArray().size();
  if (inside) return &array.AsArray()[offset];
  machine.Fail(at, u"array index out of range (" + ToText(index.AsInt()) + u")", type_);
  return machine.Scratch(type_);
}

}  // namespace kestrune::dxl
