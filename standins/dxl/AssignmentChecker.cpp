// The part of the expression checker that is about assignment: to variables, to elements, to `current`, and
// to names that come into being by it.
#include "standins/dxl/ExpressionChecker.h"
#include "standins/dxl/Nodes.h"

namespace kestrune::dxl {

namespace {

bool IsNameOf(const Expr& expr) {
  return expr.kind == ExprKind::kName || expr.kind == ExprKind::kTyped;
}

}  // namespace

Meaning ExpressionChecker::ResolveAssignment(const Expr& expr) {
  if (expr.word != u"=") return ResolveCompound(expr);
  const Expr& target = Bare(*expr.kids[0]);
  const bool is_variable = !IsNameOf(target) || checking_.names.FindVariable(target.word);
  if (is_variable) {
    const Meaning left = Resolve(target);
    return ResolveAssign(expr.at, left, Resolve(*expr.kids[1]));
  }
  return IsFunction(checking_, target.word) ? ResolveSetter(expr, target) : AutoDeclare(expr, target);
}

Meaning ExpressionChecker::ResolveAssign(Position at, const Meaning& target, const Meaning& value) {
  if (!target) return target;
  if (!value) return value;
  for (const Candidate& candidate : target.candidates) {
    if (!candidate.place || candidate.type.is_array) continue;
    const Node* node = ValueOf(checking_, value, candidate.type);
    if (!node) continue;
    const auto* binary = dynamic_cast<const BinaryNode*>(node);
    const Node* more = binary ? binary->JoinedTo(*candidate.place) : nullptr;
    if (more) return Candidate{candidate.type, checking_.code.Make<ExtendNode>(at, candidate.place, more)};
    return Candidate{candidate.type, checking_.code.Make<AssignNode>(at, candidate.place, node)};
  }
  const Meaning sides[] = {target, value};
  return ResolvePerm(checking_, at, u"=", sides, u"incorrect arguments for (=)");
}

/// `current = m` and `(current ModuleRef__) = m`.
Meaning ExpressionChecker::ResolveSetter(const Expr& expr, const Expr& target) {
  Meaning value = Resolve(*expr.kids[1]);
  if (value && target.kind == ExprKind::kTyped) {
    const Node* node = ValueOf(checking_, value, target.type);
    if (!node) return Problem{expr.at, u"incorrect arguments for (=)"};
    value = Candidate{target.type, node};
  }
  return ResolvePerm(checking_, expr.at, target.word + u"=", {&value, 1}, u"incorrect arguments for (=)");
}

/// An unknown name that is assigned to becomes a variable of the value's type.
Meaning ExpressionChecker::AutoDeclare(const Expr& expr, const Expr& target) {
  const Meaning value = Resolve(*expr.kids[1]);
  if (!value) return value;
  const Candidate& only = value.candidates.front();
  const bool has_type = value.candidates.size() == 1 && only.type.id >= kBool.id && !only.type.is_array;
  if (!has_type || target.kind == ExprKind::kTyped) return Problem{target.at, UnknownWord(target.word)};
  const VariableName* variable = checking_.names.FindVariable(target.word);  // x = x = 1
  if (!variable) variable = checking_.names.Declare(target.word, only.type, false, false);
  return ResolveAssign(expr.at, ResolveVariable(*variable, target.at), value);
}

Meaning ExpressionChecker::ResolveCompound(const Expr& expr) {
  const Meaning sides[] = {Resolve(*expr.kids[0]), Resolve(*expr.kids[1])};
  if (!sides[0]) return sides[0];
  if (!sides[1]) return sides[1];
  const TextView word = TextView(expr.word).substr(0, expr.word.size() - 1);
  for (const BinaryOperator& row : BinaryOperators()) {
    const Candidate* left = row.word == word && row.left == row.result ? sides[0].Of(row.left) : nullptr;
    const Node* right = left && left->place ? ValueOf(checking_, sides[1], row.right) : nullptr;
    if (right)
      return Candidate{row.result, checking_.code.Make<CompoundNode>(expr.at, row.run, left->place, right)};
  }
  return ResolvePerm(checking_, expr.at, expr.word, sides, u"incorrect arguments for (" + expr.word + u")");
}

}  // namespace kestrune::dxl
