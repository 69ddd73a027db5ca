// Calls of perms and of the script's own functions.
#pragma once

#include "standins/dxl/Machine.h"

namespace kestrune::dxl {

/// Also operators, properties and attribute access that the library has.
struct PermNode final : Node {
  PermNode(const PermEntry& perm, std::vector<const Node*> arguments, std::vector<Type> types)
      : perm_(perm), arguments_(std::move(arguments)), types_(std::move(types)) {}
  Value Evaluate(Machine& machine) const override;

 private:
  Value Argument(std::size_t i, Machine& machine) const;

  const PermEntry& perm_;
  std::vector<const Node*> arguments_;  // places for by-reference parameters
  std::vector<Type> types_;
};

struct FunctionNode final : Node {
  FunctionNode(const Function& function, std::vector<const Node*> arguments)
      : function_(function), arguments_(std::move(arguments)) {}
  Value Evaluate(Machine& machine) const override { return machine.Call(function_, arguments_, at); }

 private:
  const Function& function_;
  std::vector<const Node*> arguments_;
};

}  // namespace kestrune::dxl
