// One run of a program: its variables, its budget of cycles and of nesting, and what a failure leads to.
#pragma once

#include "standins/dxl/Code.h"
#include "standins/dxl/RunState.h"

namespace kestrune::dxl {

/// Thrown to end the run with an error that noError() does not hold back.
struct Stopped {
  Position at;
  Text message;
};

/// Thrown to end the run where `halt` stands.
struct Halted {};

class Machine {
 public:
  Machine(const Program& program, Host& host, Budget& budget);

  /// Runs the program once. What its values took of the budget is given back when the machine goes.
  void Run();

  Value& Global(int slot) { return globals_[static_cast<std::size_t>(slot)]; }
  Value& Local(int slot) { return locals_[slot]; }
  RunState& State() { return state_; }

  /// Counts a statement or a turn of a loop.
  void Tick(Position at) {
    at_ = at;
    state_.budget.Spend(1);
  }

  /// A run-time error: ends the run, or under noError() is kept and the failed operation gives
  /// the default of `type`.
  Value Fail(Position at, const Text& message, Type type);
  /// Stands in for a variable that could not be located under noError().
  Value* Scratch(Type type) { return &(scratch_ = Value::Default(type)); }

  /// Runs a function of the script; `arguments` are evaluated by the caller's frame.
  Value Call(const Function& function, const std::vector<const Node*>& arguments, Position at);
  /// Ends the function with a value.
  void SetResult(Value value) { result_ = std::move(value); }

 private:
  const Program& program_;
  const Budget::Scope scope_;
  RunState state_;
  std::vector<Value> globals_;
  Value* locals_ = nullptr;  // of the function that runs
  Value result_;
  Value scratch_;
  Position at_;  // of the statement that runs
  int depth_ = 0;
};

}  // namespace kestrune::dxl
