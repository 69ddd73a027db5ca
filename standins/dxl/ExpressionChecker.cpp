#include "standins/dxl/ExpressionChecker.h"

#include "standins/dxl/ChainResolver.h"
#include "standins/dxl/Nodes.h"
#include "standins/dxl/Places.h"

namespace kestrune::dxl {

namespace {

Candidate Typed(Type type, const Node* node) {
  return {type, node, nullptr};
}

}  // namespace

const Expr& Bare(const Expr& expr) {
  const Expr* bare = &expr;
  while (bare->kind == ExprKind::kParen) bare = bare->kids[0].get();
  return *bare;
}

Meaning ExpressionChecker::Resolve(const Expr& expr) {
  switch (expr.kind) {
    case ExprKind::kLiteral:
      return Typed(expr.literal.Kind(), checking_.code.Make<LiteralNode>(expr.at, expr.literal));
    case ExprKind::kName:
      return ResolveName(expr);
    case ExprKind::kTyped:
      return ResolveTyped(expr);
    case ExprKind::kCast:
      return ResolveCast(expr);
    case ExprKind::kParen:
      return Resolve(*expr.kids[0]);
    case ExprKind::kChain:
      return ChainResolver(checking_, *this, expr.kids).Resolve();
    case ExprKind::kCall:
      return ResolveList(expr);
    case ExprKind::kIndex:
      return ResolveIndex(expr);
    case ExprKind::kSlice:
      return ResolveSlice(expr);
    case ExprKind::kDot:
      return ResolveDot(expr);
    case ExprKind::kPrefix:
      return ResolvePrefix(checking_, expr.at, expr.word, Resolve(*expr.kids[0]));
    case ExprKind::kStepBefore:
    case ExprKind::kStepAfter:
      return ResolveStep(expr);
    case ExprKind::kBinary:
      return ResolveBinary(expr);
    case ExprKind::kConditional:
      return ResolveConditional(expr);
    case ExprKind::kAssign:
      return ResolveAssignment(expr);
    case ExprKind::kSizeof:
      return ResolveSizeof(expr);
  }
  return Problem{expr.at, u"syntax error"};
}

Meaning ExpressionChecker::ResolveArgument(const Expr& expr) {
  const Expr& bare = Bare(expr);
  const bool is_function = bare.kind == ExprKind::kName && bare.word != u"null" &&
                           !checking_.names.FindVariable(bare.word) && IsFunction(checking_, bare.word);
  if (is_function)
    return Problem{bare.at, u"function (" + bare.word + u") as an argument needs its parentheses"};
  return Resolve(expr);
}

const Node* ExpressionChecker::Require(const Expr& expr, Type type, TextView problem) {
  const Meaning meaning = Resolve(expr);
  if (!meaning) throw meaning.failure;
  const Node* node = ValueOf(checking_, meaning, type);
  if (!node) throw Problem{expr.at, Text(problem)};
  return node;
}

Meaning ExpressionChecker::ResolveVariable(const VariableName& variable, Position at) {
  const Place* place = nullptr;
  switch (variable.storage) {
    case Storage::kGlobal:
      place = checking_.code.Make<GlobalVariable>(at, variable.slot, variable.name, variable.type);
      break;
    case Storage::kLocal:
      place = checking_.code.Make<LocalVariable>(at, variable.slot, variable.name, variable.type);
      break;
    case Storage::kReference:
      place = checking_.code.Make<ReferenceVariable>(at, variable.slot, variable.name, variable.type);
      break;
  }
  return Candidate{variable.type, place, place};
}

Meaning ExpressionChecker::ResolveName(const Expr& expr) {
  const Text& word = expr.word;
  if (const VariableName* variable = checking_.names.FindVariable(word)) {
    Meaning meaning = ResolveVariable(*variable, expr.at);
    if (variable->is_const) meaning.candidates[0].place = nullptr;
    return meaning;
  }
  if (word == u"true" || word == u"on")
    return Typed(kBool, checking_.code.Make<LiteralNode>(expr.at, Value(true)));
  if (word == u"false" || word == u"off")
    return Typed(kBool, checking_.code.Make<LiteralNode>(expr.at, Value(false)));
  if (word == u"null") return Typed(kNull, checking_.code.Make<LiteralNode>(expr.at, Value()));
  return ResolveCall(checking_, expr.at, word, {});
}

/// `current Module`: the reading of that type.
Meaning ExpressionChecker::ResolveTyped(const Expr& expr) {
  const Meaning meaning = ResolveName(expr);
  if (!meaning) return meaning;
  const Candidate* candidate = meaning.Of(expr.type);
  if (!candidate) return Problem{expr.at, u"incorrect arguments for function (" + expr.word + u")"};
  return *candidate;
}

Meaning ExpressionChecker::ResolveCast(const Expr& expr) {
  const Meaning meaning = Resolve(*expr.kids[0]);
  if (!meaning) return meaning;
  if (const Candidate* exact = meaning.Of(expr.type)) return Typed(expr.type, exact->node);
  if (const Candidate* any = meaning.Of(kAny))
    return Typed(expr.type, checking_.code.Make<CheckedCastNode>(expr.at, expr.type, any->node));
  return Problem{expr.at, u"impossible cast"};
}

Meaning ExpressionChecker::ResolveList(const Expr& expr) {
  std::vector<Meaning> arguments;
  for (const ExprPtr& kid : expr.kids) arguments.push_back(ResolveArgument(*kid));
  return ResolveCall(checking_, expr.at, expr.word, arguments);
}

Meaning ExpressionChecker::ResolveIndex(const Expr& expr) {
  const Meaning sides[] = {Resolve(*expr.kids[0]), Resolve(*expr.kids[1])};
  const Node* index = sides[1] ? ValueOf(checking_, sides[1], kInt) : nullptr;
  for (const Candidate& array : sides[0].candidates) {
    if (!array.type.is_array || !index) continue;
    const Type type = array.type.Element();
    const Place* element = checking_.code.Make<Element>(expr.at, array.node, index, type);
    return Candidate{type, element, array.place ? element : nullptr};
  }
  return ResolvePerm(checking_, expr.at, u"[]", sides, u"incorrect arguments for ([])");
}

Meaning ExpressionChecker::ResolveSlice(const Expr& expr) {
  std::vector<Meaning> parts;
  for (const ExprPtr& kid : expr.kids) parts.push_back(Resolve(*kid));
  return ResolvePerm(checking_, expr.at, u"[:]", parts, u"incorrect arguments for ([])");
}

/// A property (ad.name), or an attribute named by a text (o."X") or by a variable (o.wanted).
Meaning ExpressionChecker::ResolveDot(const Expr& expr) {
  const Meaning left = Resolve(*expr.kids[0]);
  const Expr& right = *expr.kids[1];
  if (!left || right.kind != ExprKind::kName) return ResolveAttribute(left, expr);
  const Meaning property =
      ResolvePerm(checking_, expr.at, u"." + right.word, {&left, 1}, UnknownProperty(right.word));
  if (!checking_.names.FindVariable(right.word)) return property;
  if (property) return Problem{right.at, u"variable (" + right.word + u") hides the property of that name"};
  return ResolveAttribute(left, expr);
}

Meaning ExpressionChecker::ResolveAttribute(const Meaning& left, const Expr& expr) {
  const Meaning sides[] = {left, ResolveArgument(*expr.kids[1])};
  return ResolvePerm(checking_, expr.at, u".", sides, u"incorrect arguments for (.)");
}

Meaning ExpressionChecker::ResolveStep(const Expr& expr) {
  const Meaning meaning = Resolve(*expr.kids[0]);
  if (!meaning) return meaning;
  const Candidate* number = meaning.Of(kInt);
  if (!number || !number->place) return Problem{expr.at, u"incorrect arguments for (" + expr.word + u")"};
  const int by = expr.word == u"++" ? 1 : -1;
  const bool gives_old = expr.kind == ExprKind::kStepAfter;
  return Typed(kInt, checking_.code.Make<StepNode>(expr.at, by, gives_old, number->place));
}

Meaning ExpressionChecker::ResolveBinary(const Expr& expr) {
  if (expr.word == u"&&" || expr.word == u"and") return ResolveLazy(expr, false);
  if (expr.word == u"||" || expr.word == u"or") return ResolveLazy(expr, true);
  const Meaning left = Resolve(*expr.kids[0]);
  return ResolveOperator(checking_, expr.at, expr.word, left, Resolve(*expr.kids[1]));
}

Meaning ExpressionChecker::ResolveLazy(const Expr& expr, bool decided) {
  const Meaning left = Resolve(*expr.kids[0]);
  if (!left) return left;
  const Meaning right = Resolve(*expr.kids[1]);
  if (!right) return right;
  const Node* a = ValueOf(checking_, left, kBool);
  const Node* b = ValueOf(checking_, right, kBool);
  if (!a || !b) return Problem{expr.at, u"incorrect arguments for (" + expr.word + u")"};
  return Typed(kBool, checking_.code.Make<LazyNode>(expr.at, decided, a, b));
}

Meaning ExpressionChecker::ResolveConditional(const Expr& expr) {
  const Meaning condition = Resolve(*expr.kids[0]);
  if (!condition) return condition;
  const Meaning yes = Resolve(*expr.kids[1]);
  if (!yes) return yes;
  const Meaning no = Resolve(*expr.kids[2]);
  if (!no) return no;
  Meaning meaning(Problem{expr.at, u"incorrect arguments for (?)"});
  const Node* test = ValueOf(checking_, condition, kBool);
  for (const Meaning* side : {&yes, &no}) {
    for (const Candidate& candidate : side->candidates) {
      const Node* a = ValueOf(checking_, yes, candidate.type);
      const Node* b = ValueOf(checking_, no, candidate.type);
      if (!test || !a || !b || meaning.Of(candidate.type)) continue;
      meaning.candidates.push_back(
          Typed(candidate.type, checking_.code.Make<ConditionalNode>(expr.at, test, a, b)));
    }
  }
  return meaning;
}

Meaning ExpressionChecker::ResolveSizeof(const Expr& expr) {
  const Meaning meaning = Resolve(*expr.kids[0]);
  for (const Candidate& candidate : meaning.candidates) {
    if (candidate.type.is_array) return Typed(kInt, checking_.code.Make<SizeofNode>(expr.at, candidate.node));
  }
  return meaning ? Problem{expr.at, u"incorrect arguments for (sizeof)"} : meaning.failure;
}

}  // namespace kestrune::dxl
