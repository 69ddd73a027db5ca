#include "standins/dxl/StatementChecker.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "standins/dxl/Actions.h"

namespace kestrune::dxl {

namespace {

constexpr TextView kNotBool = u"incorrect arguments: a condition must be a bool";

}  // namespace

std::vector<Problem> StatementChecker::Check(const std::vector<StmtPtr>& statements) {
  checking_.code.body = CheckAll({1, 1}, statements);
  CheckThatFunctionsHaveBodies();
  return std::move(problems_);
}

const Action* StatementChecker::CheckAll(Position at, const std::vector<StmtPtr>& statements) {
  std::vector<const Action*> actions;
  for (const StmtPtr& statement : statements) {
    try {
      if (const Action* action = CheckOne(*statement)) actions.push_back(action);
    } catch (Problem& problem) {
      problems_.push_back(std::move(problem));
    }
  }
  return checking_.code.Make<BlockAction>(at, std::move(actions));
}

const Action* StatementChecker::CheckOne(const Stmt& statement) {
  Measure(statement);
  switch (statement.kind) {
    case StmtKind::kExpression:
      return CheckExpression(statement);
    case StmtKind::kDeclare:
      return CheckDeclaration(statement);
    case StmtKind::kFunction:
      return CheckFunction(statement);
    case StmtKind::kBlock:
      return CheckBody(statement);
    case StmtKind::kIf:
      return CheckIf(statement);
    case StmtKind::kWhile:
      return CheckWhile(statement);
    case StmtKind::kFor:
      return CheckFor(statement);
    case StmtKind::kForRange:
      return CheckForRange(statement);
    case StmtKind::kForIn:
      return CheckForIn(statement);
    case StmtKind::kBreak:
    case StmtKind::kContinue:
      return CheckJump(statement);
    case StmtKind::kReturn:
      return CheckReturn(statement);
    case StmtKind::kPragma:
      return CheckPragma(statement);
  }
  return nullptr;
}

/// Notes how deep the statement's expressions reach, for the function's share of the native stack.
void StatementChecker::Measure(const Stmt& statement) {
  const auto reach = [this](const ExprPtr& expr) {
    if (expr) deepest_ = std::max(deepest_, level_ + expr->depth);
  };
  std::for_each(statement.exprs.begin(), statement.exprs.end(), reach);
  for (const Declarator& declarator : statement.declarators) {
    reach(declarator.size);
    reach(declarator.initial);
    std::for_each(declarator.elements.begin(), declarator.elements.end(), reach);
  }
  deepest_ = std::max(deepest_, level_ + 1);
}

/// A block, or the single statement that stands for one: names declared in it end with it.
const Action* StatementChecker::CheckBody(const Stmt& statement) {
  checking_.names.Open();
  ++level_;
  const Action* action = nullptr;
  if (statement.kind == StmtKind::kBlock) {
    action = CheckAll(statement.at, statement.body);
  } else {
    try {
      action = CheckOne(statement);
    } catch (Problem& problem) {
      problems_.push_back(std::move(problem));
    }
  }
  --level_;
  checking_.names.Close();
  return action ? action : checking_.code.Make<BlockAction>(statement.at, std::vector<const Action*>{});
}

const Node* StatementChecker::Value(const Expr& expr) {
  const Meaning meaning = expressions_.Resolve(expr);
  if (!meaning) throw meaning.failure;
  return meaning.candidates.front().node;
}

const Action* StatementChecker::CheckExpression(const Stmt& statement) {
  return checking_.code.Make<ExpressionAction>(statement.at, Value(*statement.exprs[0]));
}

const Action* StatementChecker::CheckDeclaration(const Stmt& statement) {
  std::vector<const Action*> actions;
  for (const Declarator& declarator : statement.declarators) {
    try {
      Declare(statement, declarator, actions);
    } catch (Problem& problem) {
      problems_.push_back(std::move(problem));
    }
  }
  return checking_.code.Make<BlockAction>(statement.at, std::move(actions));
}

/// The initial value does not see the variable yet; the variable exists even when the value is wrong.
void StatementChecker::Declare(const Stmt& statement, const Declarator& declarator,
                               std::vector<const Action*>& actions) {
  if (statement.type == kVoid) throw Problem{declarator.at, u"a variable cannot be void"};
  if (declarator.is_array) {
    actions.push_back(DeclareArray(statement, declarator));
    return;
  }
  std::optional<Meaning> initial;
  if (declarator.initial) initial = expressions_.Resolve(*declarator.initial);
  const VariableName& name = DeclareName(declarator, statement.type, statement.is_const);
  const Meaning variable = expressions_.ResolveVariable(name, declarator.at);
  actions.push_back(checking_.code.Make<DeclareAction>(declarator.at, variable.candidates[0].place));
  if (!initial) return;
  const Meaning assigned = expressions_.ResolveAssign(declarator.at, variable, *initial);
  if (!assigned) throw assigned.failure;
  actions.push_back(checking_.code.Make<ExpressionAction>(declarator.at, assigned.candidates[0].node));
}

const Action* StatementChecker::DeclareArray(const Stmt& statement, const Declarator& declarator) {
  const Node* size = nullptr;
  if (declarator.size) size = expressions_.Require(*declarator.size, kInt, u"incorrect arguments for ([])");
  std::vector<const Node*> elements;
  for (const ExprPtr& element : declarator.elements)
    elements.push_back(expressions_.Require(*element, statement.type, u"incorrect arguments for (=)"));
  if (!size && elements.empty()) throw Problem{declarator.at, u"an array needs a size"};
  const VariableName& name = DeclareName(declarator, Type{statement.type.id, true}, statement.is_const);
  const Place* place = expressions_.ResolveVariable(name, declarator.at).candidates[0].place;
  return checking_.code.Make<DeclareArrayAction>(declarator.at, place, statement.type, size,
                                                 std::move(elements));
}

const VariableName& StatementChecker::DeclareName(const Declarator& declarator, Type type, bool is_const) {
  const VariableName* name = checking_.names.Declare(declarator.name, type, is_const, false);
  if (!name) throw Problem{declarator.at, u"variable (" + declarator.name + u") is already declared"};
  return *name;
}

const Action* StatementChecker::CheckIf(const Stmt& statement) {
  const Node* condition = expressions_.Require(*statement.exprs[0], kBool, kNotBool);
  const Action* yes = CheckBody(*statement.body[0]);
  const Action* no = statement.body.size() > 1 ? CheckBody(*statement.body[1]) : nullptr;
  return checking_.code.Make<IfAction>(statement.at, condition, yes, no);
}

const Action* StatementChecker::CheckLoopBody(const Stmt& statement) {
  ++loops_;
  const Action* body = CheckBody(*statement.body[0]);
  --loops_;
  return body;
}

const Action* StatementChecker::CheckWhile(const Stmt& statement) {
  const Node* condition = expressions_.Require(*statement.exprs[0], kBool, kNotBool);
  return checking_.code.Make<LoopAction>(statement.at, nullptr, condition, nullptr, CheckLoopBody(statement));
}

const Action* StatementChecker::CheckFor(const Stmt& statement) {
  const auto& parts = statement.exprs;
  const Node* initial = parts[0] ? Value(*parts[0]) : nullptr;
  const Node* condition = parts[1] ? expressions_.Require(*parts[1], kBool, kNotBool) : nullptr;
  const Node* step = parts[2] ? Value(*parts[2]) : nullptr;
  return checking_.code.Make<LoopAction>(statement.at, initial, condition, step, CheckLoopBody(statement));
}

Candidate StatementChecker::LoopVariable(const Stmt& statement) {
  const VariableName* name = checking_.names.FindVariable(statement.word);
  if (!name) throw Problem{statement.at, u"undeclared variable (" + statement.word + u")"};
  if (name->is_const) throw Problem{statement.at, u"incorrect arguments for (for)"};
  return expressions_.ResolveVariable(*name, statement.at).candidates[0];
}

const Action* StatementChecker::CheckForRange(const Stmt& statement) {
  constexpr TextView kNotInts = u"incorrect arguments for (:)";
  const Candidate variable = LoopVariable(statement);
  if (variable.type != kInt) throw Problem{statement.at, Text(kNotInts)};
  const Node* from = expressions_.Require(*statement.exprs[0], kInt, kNotInts);
  const Node* to = expressions_.Require(*statement.exprs[1], kInt, kNotInts);
  const Expr* step = statement.exprs[2].get();
  const Node* by = step ? expressions_.Require(*step, kInt, kNotInts) : nullptr;
  return checking_.code.Make<RangeAction>(statement.at, variable.place, from, to, by,
                                          CheckLoopBody(statement));
}

const Action* StatementChecker::CheckForIn(const Stmt& statement) {
  const Candidate variable = LoopVariable(statement);
  const Meaning collection = expressions_.Resolve(*statement.exprs[0]);
  if (!collection) throw collection.failure;
  for (const Candidate& candidate : collection.candidates) {
    const LoopEntry* loop = checking_.perms.FindLoop(variable.type, candidate.type);
    if (!loop) continue;
    return checking_.code.Make<CollectionAction>(statement.at, variable.place, variable.type, *loop,
                                                 candidate.node, CheckLoopBody(statement));
  }
  throw Problem{statement.at, u"incorrect arguments for (for)"};
}

const Action* StatementChecker::CheckJump(const Stmt& statement) {
  const bool is_break = statement.kind == StmtKind::kBreak;
  if (loops_ == 0)
    throw Problem{statement.at, is_break ? u"break outside a loop" : u"continue outside a loop"};
  return checking_.code.Make<JumpAction>(statement.at, is_break ? Flow::kBreak : Flow::kContinue);
}

const Action* StatementChecker::CheckPragma(const Stmt& statement) {
  const Expr& value = *statement.exprs[0];
  if (value.kind != ExprKind::kLiteral || value.literal.Kind() != kInt)
    throw Problem{value.at, u"incorrect arguments for (pragma)"};
  if (statement.word != u"runLim") throw Problem{statement.at, NotSupported(u"pragma " + statement.word)};
  return checking_.code.Make<RunLimitAction>(statement.at, value.literal.AsInt());
}

}  // namespace kestrune::dxl
