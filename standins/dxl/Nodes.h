// Expressions, ready to run.
#pragma once

#include "standins/dxl/Machine.h"
#include "standins/dxl/Operators.h"

namespace kestrune::dxl {

struct LiteralNode final : Node {
  explicit LiteralNode(Value value) : literal_(std::move(value)) {}
  Value Evaluate(Machine&) const override { return literal_; }

 private:
  Value literal_;
};

struct UnaryNode final : Node {
  UnaryNode(UnaryFunction run, const Node* kid) : run_(run), kid_(kid) {}
  Value Evaluate(Machine& machine) const override { return run_(kid_->Evaluate(machine)); }

 private:
  UnaryFunction run_;
  const Node* kid_;
};

struct BinaryNode final : Node {
  BinaryNode(BinaryFunction run, Type result, const Node* left, const Node* right)
      : run_(run), result_(result), left_(left), right_(right) {}
  Value Evaluate(Machine& machine) const override;
  /// What is joined to the variable, for `variable ..`; null for anything else.
  const Node* JoinedTo(const Place& variable) const {
    return JoinsTexts(run_) && variable.IsSameVariable(*left_) ? right_ : nullptr;
  }

 private:
  BinaryFunction run_;
  Type result_;
  const Node* left_;
  const Node* right_;
};

/// && and ||: `decided` is the left value at which the right side is not looked at.
struct LazyNode final : Node {
  LazyNode(bool decided, const Node* left, const Node* right)
      : decided_(decided), left_(left), right_(right) {}
  Value Evaluate(Machine& machine) const override {
    return left_->Evaluate(machine).AsBool() == decided_ ? Value(decided_) : right_->Evaluate(machine);
  }

 private:
  bool decided_;
  const Node* left_;
  const Node* right_;
};

struct ConditionalNode final : Node {
  ConditionalNode(const Node* condition, const Node* yes, const Node* no)
      : condition_(condition), yes_(yes), no_(no) {}
  Value Evaluate(Machine& machine) const override {
    return (condition_->Evaluate(machine).AsBool() ? yes_ : no_)->Evaluate(machine);
  }

 private:
  const Node* condition_;
  const Node* yes_;
  const Node* no_;
};

struct AssignNode final : Node {
  AssignNode(const Place* place, const Node* value) : target_(place), source_(value) {}
  Value Evaluate(Machine& machine) const override {
    Value value = source_->Evaluate(machine);
    return *target_->Locate(machine) = std::move(value);
  }

 private:
  const Place* target_;
  const Node* source_;
};

/// s = s more. The text grows in its place where nobody else holds it, so that building a text piece by piece
/// takes time in proportion to its length.
struct ExtendNode final : Node {
  ExtendNode(const Place* variable, const Node* more) : target_(variable), more_(more) {}
  Value Evaluate(Machine& machine) const override;

 private:
  const Place* target_;
  const Node* more_;
};

/// += and its like.
struct CompoundNode final : Node {
  CompoundNode(BinaryFunction run, const Place* place, const Node* value)
      : run_(run), target_(place), source_(value) {}
  Value Evaluate(Machine& machine) const override;

 private:
  BinaryFunction run_;
  const Place* target_;
  const Node* source_;
};

/// ++ and --, before or after the variable.
struct StepNode final : Node {
  StepNode(int by, bool gives_old, const Place* place) : by_(by), gives_old_(gives_old), target_(place) {}
  Value Evaluate(Machine& machine) const override;

 private:
  int by_;
  bool gives_old_;
  const Place* target_;
};

/// A value from a Skip, which must turn out to be of the type that the script says.
struct CheckedCastNode final : Node {
  CheckedCastNode(Type type, const Node* kid) : type_(type), kid_(kid) {}
  Value Evaluate(Machine& machine) const override;

 private:
  Type type_;
  const Node* kid_;
};

struct SizeofNode final : Node {
  explicit SizeofNode(const Node* array) : array_(array) {}
  Value Evaluate(Machine& machine) const override;

 private:
  const Node* array_;
};

}  // namespace kestrune::dxl
