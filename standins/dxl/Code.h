// The form in which a script runs: trees of nodes whose names, overloads and slots were all
// settled by the compiler.
#pragma once

#include <memory>
#include <vector>

#include "standins/dxl/Error.h"
#include "standins/dxl/Library.h"

namespace kestrune::dxl {

class Machine;

struct Code {
  virtual ~Code() = default;
  Position at;
};

/// An expression.
struct Node : Code {
  virtual Value Evaluate(Machine& machine) const = 0;
};

/// An expression that can be assigned to.
struct Place : Node {
  Value Evaluate(Machine& machine) const final { return Read(*Locate(machine), machine); }
  /// The variable; valid until the function that it belongs to returns.
  virtual Value* Locate(Machine& machine) const = 0;
  /// The value of the variable that Locate gave; one that was never assigned is a run-time error.
  virtual Value Read(const Value& located, Machine& machine) const = 0;
  /// Whether both are the same variable, known before anything runs.
  virtual bool IsSameVariable(const Node&) const { return false; }
};

enum class Flow { kNext, kBreak, kContinue, kReturn };

/// A statement.
struct Action : Code {
  virtual Flow Run(Machine& machine) const = 0;
};

/// A function of the script. Its frame holds the parameters first, a by-reference one as a reference.
struct Function {
  Text name;
  Position at;
  Type result;
  std::vector<Parameter> parameters;
  int frame_size = 0;
  int depth = 0;  // how deep its statements and expressions nest, for the bound of the native stack
  const Action* body = nullptr;  // null until the definition follows its forward declaration
};

/// A compiled script: the owner of all its code.
class Program {
 public:
  template <typename T, typename... Parts>
  T* Make(Position at, Parts&&... parts) {
    auto code = std::make_unique<T>(std::forward<Parts>(parts)...);
    code->at = at;
    T* made = code.get();
    code_.push_back(std::move(code));
    return made;
  }
  Function* MakeFunction(Function function) {
    functions_.push_back(std::make_unique<Function>(std::move(function)));
    return functions_.back().get();
  }
  const std::vector<std::unique_ptr<Function>>& Functions() const { return functions_; }

  Text file_name;
  int global_count = 0;  // variables of the script level, wherever blocks nest there
  const Action* body = nullptr;

 private:
  std::vector<std::unique_ptr<Code>> code_;
  std::vector<std::unique_ptr<Function>> functions_;
};

}  // namespace kestrune::dxl
