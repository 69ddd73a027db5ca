#include "standins/dxl/Scopes.h"

#include <utility>

namespace kestrune::dxl {

Function* Scopes::Enter(Function* function) {
  return std::exchange(function_, function);
}

const VariableName* Scopes::Declare(const Text& name, Type type, bool is_const, bool by_reference) {
  const auto [at, is_new] = scopes_.back().variables.try_emplace(name);
  if (!is_new) return nullptr;
  VariableName& variable = at->second;
  variable = {name, type, Storage::kGlobal, 0, is_const, function_};
  if (function_) variable.storage = by_reference ? Storage::kReference : Storage::kLocal;
  variable.slot = function_ ? function_->frame_size++ : program_.global_count++;
  return &variable;
}

const VariableName* Scopes::FindVariable(const Text& name) const {
  for (auto scope = scopes_.rbegin(); scope != scopes_.rend(); ++scope) {
    const auto found = scope->variables.find(name);
    if (found == scope->variables.end()) continue;
    const VariableName& variable = found->second;
    if (variable.owner == nullptr || variable.owner == function_) return &variable;
  }
  return nullptr;
}

std::vector<Function*> Scopes::FindFunctions(const Text& name) const {
  std::vector<Function*> functions;
  for (auto scope = scopes_.rbegin(); scope != scopes_.rend(); ++scope) {
    const auto found = scope->functions.find(name);
    if (found != scope->functions.end())
      functions.insert(functions.end(), found->second.begin(), found->second.end());
  }
  return functions;
}

}  // namespace kestrune::dxl
