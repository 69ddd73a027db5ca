// The names a script declares, and where each can be seen: from its declaration to the end of its block,
// inner ones hiding outer ones. A function sees the variables of the script level, but not those of a
// function around it.
#pragma once

#include <map>
#include <vector>

#include "standins/dxl/Code.h"

namespace kestrune::dxl {

enum class Storage { kGlobal, kLocal, kReference };

struct VariableName {
  Text name;
  Type type;
  Storage storage = Storage::kGlobal;
  int slot = 0;
  bool is_const = false;
  const Function* owner = nullptr;  // null at the script level
};

class Scopes {
 public:
  explicit Scopes(Program& program) : program_(program) { Open(); }

  void Open() { scopes_.emplace_back(); }
  void Close() { scopes_.pop_back(); }
  /// Variables declared from here on belong to `function`; null for the script level. Returns the one before.
  Function* Enter(Function* function);
  Function* Current() const { return function_; }

  /// Adds a variable with a slot of its own. Null if the block has one of that name.
  const VariableName* Declare(const Text& name, Type type, bool is_const, bool by_reference);
  void AddFunction(Function* function) { scopes_.back().functions[function->name].push_back(function); }

  const VariableName* FindVariable(const Text& name) const;
  /// The overloads in sight, innermost first.
  std::vector<Function*> FindFunctions(const Text& name) const;

 private:
  struct Scope {
    std::map<Text, VariableName> variables;
    std::map<Text, std::vector<Function*>> functions;
  };

  Program& program_;
  Function* function_ = nullptr;
  std::vector<Scope> scopes_;
};

}  // namespace kestrune::dxl
