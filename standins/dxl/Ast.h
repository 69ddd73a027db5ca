// The script as it is written, before names and types are looked at.
#pragma once

#include <memory>
#include <vector>

#include "standins/dxl/Token.h"

namespace kestrune::dxl {

/// How deep expressions and statements may nest in the source. It bounds the native stack
/// of every later walk.
inline constexpr int kMaxNesting = 200;

enum class ExprKind {
  kLiteral,
  kName,         // word
  kTyped,        // word, type: current Module
  kCast,         // type, kid: (int key sk)
  kParen,        // kid
  kChain,        // two kids or more side by side: print "n=" n "\n", identifier(o) "\n"
  kCall,         // word, kids: none or two and more; with one argument it is a chain
  kIndex,        // kid[kid]
  kSlice,        // kid[kid:kid], or two kids when it runs to the end
  kDot,          // kid.kid
  kPrefix,       // word, kid
  kStepBefore,   // word ++ or --, kid
  kStepAfter,    // the same
  kBinary,       // word, two kids
  kConditional,  // kid ? kid : kid
  kAssign,       // word = += ..., two kids
  kSizeof,       // kid
};

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

struct Expr {
  ExprKind kind;
  Position at;
  Text word;
  Type type;
  Value literal;
  std::vector<ExprPtr> kids;
  int depth = 1;  // levels of nesting, this one included
};

enum class StmtKind {
  kExpression,  // expr
  kDeclare,     // type, declarators
  kFunction,    // type, word, parameters; body[0], or nothing for a forward declaration
  kBlock,       // body
  kIf,          // expr, body[0], body[1] for else
  kWhile,       // expr, body[0]
  kFor,         // exprs init, condition, step (each may be null), body[0]
  kForRange,    // word, exprs from, to, by (may be null), body[0]
  kForIn,       // word, expr, body[0]
  kBreak,
  kContinue,
  kReturn,  // expr or nothing
  kPragma,  // word, expr
};

struct Declarator {
  Text name;
  Position at;
  bool is_array = false;
  ExprPtr size;                   // of an array without elements
  ExprPtr initial;                // may be null
  std::vector<ExprPtr> elements;  // int a[] = {1, 2}
};

struct ParameterDeclaration {
  Text name;  // may be empty in a forward declaration
  Position at;
  Type type;
  bool by_reference = false;
};

struct Stmt;
using StmtPtr = std::unique_ptr<Stmt>;

struct Stmt {
  StmtKind kind;
  Position at;
  Text word;
  Type type;
  bool is_const = false;
  std::vector<Declarator> declarators;
  std::vector<ParameterDeclaration> parameters;
  std::vector<ExprPtr> exprs;
  std::vector<StmtPtr> body;
};

}  // namespace kestrune::dxl
