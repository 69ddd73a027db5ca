// The part of the statement checker that is about functions: their headers, their bodies, return.
#include <algorithm>
#include <utility>

#include "standins/dxl/Actions.h"
#include "standins/dxl/StatementChecker.h"

namespace kestrune::dxl {

namespace {

bool SameParameters(const Function& function, const std::vector<ParameterDeclaration>& parameters) {
  return std::equal(function.parameters.begin(), function.parameters.end(), parameters.begin(),
                    parameters.end(), [](const Parameter& a, const ParameterDeclaration& b) {
                      return a.type == b.type && a.by_reference == b.by_reference;
                    });
}

}  // namespace

const Action* StatementChecker::CheckFunction(const Stmt& statement) {
  Function* function = FunctionOf(statement);
  if (statement.body.empty()) return nullptr;
  if (function->body) throw Problem{statement.at, u"function (" + statement.word + u") is already defined"};
  CheckFunctionBody(statement, *function);
  return nullptr;
}

/// The function that a header declares: a new one, or that of a forward declaration.
Function* StatementChecker::FunctionOf(const Stmt& statement) {
  for (Function* known : checking_.names.FindFunctions(statement.word)) {
    if (known->result == statement.type && SameParameters(*known, statement.parameters)) return known;
  }
  Function function;
  function.name = statement.word;
  function.at = statement.at;
  function.result = statement.type;
  for (const ParameterDeclaration& parameter : statement.parameters)
    function.parameters.push_back({parameter.type, parameter.by_reference});
  Function* made = checking_.code.MakeFunction(std::move(function));
  checking_.names.AddFunction(made);
  return made;
}

void StatementChecker::CheckFunctionBody(const Stmt& statement, Function& function) {
  Function* const outer = checking_.names.Enter(&function);
  const int outer_loops = std::exchange(loops_, 0);
  const int outer_level = std::exchange(level_, 0);
  const int outer_deepest = std::exchange(deepest_, 0);
  checking_.names.Open();
  for (const ParameterDeclaration& parameter : statement.parameters) {
    if (!checking_.names.Declare(parameter.name, parameter.type, false, parameter.by_reference))
      problems_.push_back({parameter.at, u"parameter (" + parameter.name + u") is already declared"});
  }
  function.body = CheckBody(*statement.body[0]);
  function.depth = deepest_ + 1;
  checking_.names.Close();
  checking_.names.Enter(outer);
  loops_ = outer_loops;
  level_ = outer_level;
  deepest_ = outer_deepest;
}

const Action* StatementChecker::CheckReturn(const Stmt& statement) {
  const Function* function = checking_.names.Current();
  if (!function) throw Problem{statement.at, u"return outside a function"};
  const bool has_value = !statement.exprs.empty();
  if (has_value != (function->result != kVoid))
    throw Problem{statement.at, u"incorrect arguments for (return)"};
  const Node* value = nullptr;
  if (has_value)
    value = expressions_.Require(*statement.exprs[0], function->result, u"incorrect arguments for (return)");
  return checking_.code.Make<ReturnAction>(statement.at, value);
}

/// A function that is only declared would be called into nothing.
void StatementChecker::CheckThatFunctionsHaveBodies() {
  for (const auto& function : checking_.code.Functions()) {
    if (!function->body)
      problems_.push_back({function->at, u"function (" + function->name + u") is declared but not defined"});
  }
}

}  // namespace kestrune::dxl
