// Finds out what expressions mean: names, types and overloads, each settled before anything runs.
#pragma once

#include "standins/dxl/Ast.h"
#include "standins/dxl/Overloads.h"

namespace kestrune::dxl {

class ExpressionChecker {
 public:
  explicit ExpressionChecker(Checking& checking) : checking_(checking) {}

  Meaning Resolve(const Expr& expr);
  /// An element of a chain or an argument in a list. A function there must be called with its parentheses.
  Meaning ResolveArgument(const Expr& expr);
  /// The expression as a value of `type`. Throws Problem: `problem` at the expression if it
  /// has no such reading.
  const Node* Require(const Expr& expr, Type type, TextView problem);
  /// target = value, for assignments and initial values. Throws nothing; the meaning tells.
  Meaning ResolveAssign(Position at, const Meaning& target, const Meaning& value);
  /// The variable as a target too, even if it is a constant.
  Meaning ResolveVariable(const VariableName& variable, Position at);

 private:
  Meaning ResolveName(const Expr& expr);
  Meaning ResolveTyped(const Expr& expr);
  Meaning ResolveCast(const Expr& expr);
  Meaning ResolveList(const Expr& expr);
  Meaning ResolveIndex(const Expr& expr);
  Meaning ResolveSlice(const Expr& expr);
  Meaning ResolveDot(const Expr& expr);
  Meaning ResolveAttribute(const Meaning& left, const Expr& expr);
  Meaning ResolveStep(const Expr& expr);
  Meaning ResolveBinary(const Expr& expr);
  Meaning ResolveLazy(const Expr& expr, bool decided);
  Meaning ResolveConditional(const Expr& expr);
  Meaning ResolveSizeof(const Expr& expr);
  Meaning ResolveAssignment(const Expr& expr);
  Meaning ResolveCompound(const Expr& expr);
  Meaning ResolveSetter(const Expr& expr, const Expr& target);
  Meaning AutoDeclare(const Expr& expr, const Expr& target);

  Checking& checking_;
};

/// The expression inside any parentheses.
const Expr& Bare(const Expr& expr);

}  // namespace kestrune::dxl
