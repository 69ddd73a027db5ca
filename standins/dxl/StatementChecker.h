// Turns the statements of a script into code, or into the list of what is wrong with them.
#pragma once

#include "standins/dxl/ExpressionChecker.h"

namespace kestrune::dxl {

class StatementChecker {
 public:
  StatementChecker(Program& program, const Library& library)
      : checking_(program, library), expressions_(checking_) {}

  /// Sets the program's body. A statement with a problem is left out and the check goes on with the next.
  std::vector<Problem> Check(const std::vector<StmtPtr>& statements);

 private:
  const Action* CheckAll(Position at, const std::vector<StmtPtr>& statements);
  const Action* CheckOne(const Stmt& statement);
  const Action* CheckBody(const Stmt& statement);
  const Action* CheckExpression(const Stmt& statement);
  const Action* CheckDeclaration(const Stmt& statement);
  void Declare(const Stmt& statement, const Declarator& declarator, std::vector<const Action*>& actions);
  const Action* DeclareArray(const Stmt& statement, const Declarator& declarator);
  const VariableName& DeclareName(const Declarator& declarator, Type type, bool is_const);
  const Action* CheckFunction(const Stmt& statement);
  Function* FunctionOf(const Stmt& statement);
  void CheckFunctionBody(const Stmt& statement, Function& function);
  const Action* CheckIf(const Stmt& statement);
  const Action* CheckWhile(const Stmt& statement);
  const Action* CheckFor(const Stmt& statement);
  const Action* CheckForRange(const Stmt& statement);
  const Action* CheckForIn(const Stmt& statement);
  const Action* CheckLoopBody(const Stmt& statement);
  const Action* CheckJump(const Stmt& statement);
  const Action* CheckReturn(const Stmt& statement);
  const Action* CheckPragma(const Stmt& statement);
  void CheckThatFunctionsHaveBodies();
  Candidate LoopVariable(const Stmt& statement);
  const Node* Value(const Expr& expr);
  void Measure(const Stmt& statement);

  Checking checking_;
  ExpressionChecker expressions_;
  std::vector<Problem> problems_;
  int loops_ = 0;    // around the statement, within its function
  int level_ = 0;    // of nesting of the statement
  int deepest_ = 0;  // level of any expression in the function
};

}  // namespace kestrune::dxl
