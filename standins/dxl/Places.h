// What can be assigned to: variables by where they live, and elements of arrays.
#pragma once

#include "standins/dxl/Machine.h"

namespace kestrune::dxl {

struct Variable : Place {
  Variable(int slot, Text name, Type type) : slot_(slot), name_(std::move(name)), type_(type) {}
  Value Read(const Value& located, Machine& machine) const final;
  bool IsSameVariable(const Node& other) const final;

 protected:
  int slot_;

 private:
  Text name_;
  Type type_;
};

struct GlobalVariable final : Variable {
  using Variable::Variable;
  Value* Locate(Machine& machine) const override { return &machine.Global(slot_); }
};

struct LocalVariable final : Variable {
  using Variable::Variable;
  Value* Locate(Machine& machine) const override { return &machine.Local(slot_); }
};

/// A by-reference parameter.
struct ReferenceVariable final : Variable {
  using Variable::Variable;
  Value* Locate(Machine& machine) const override { return machine.Local(slot_).AsReference(); }
};

struct Element final : Place {
  Element(const Node* array, const Node* index, Type type) : array_(array), index_(index), type_(type) {}
  Value* Locate(Machine& machine) const override;
  Value Read(const Value& located, Machine& machine) const override;

 private:
  const Node* array_;
  const Node* index_;
  Type type_;
};

}  // namespace kestrune::dxl
