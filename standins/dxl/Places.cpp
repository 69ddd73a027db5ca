#include "standins/dxl/Places.h"

#include <typeinfo>

namespace kestrune::dxl {

Value Variable::Read(const Value& located, Machine& machine) const {
  if (!located.IsAssigned()) return machine.Fail(at, u"unassigned variable (" + name_ + u")", type_);
  return located;
}

bool Variable::IsSameVariable(const Node& other) const {
  return typeid(*this) == typeid(other) && slot_ == static_cast<const Variable&>(other).slot_;
}

Value Element::Read(const Value& located, Machine& machine) const {
  if (!located.IsAssigned()) return machine.Fail(at, u"unassigned array element", type_);
  return located;
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
