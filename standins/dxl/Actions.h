// Statements, ready to run.
#pragma once

#include "standins/dxl/Machine.h"

namespace kestrune::dxl {

struct ExpressionAction final : Action {
  explicit ExpressionAction(const Node* expression) : expression_(expression) {}
  Flow Run(Machine& machine) const override {
    expression_->Evaluate(machine);
    return Flow::kNext;
  }

 private:
  const Node* expression_;
};

struct BlockAction final : Action {
  explicit BlockAction(std::vector<const Action*> body) : body_(std::move(body)) {}
  Flow Run(Machine& machine) const override;

 private:
  std::vector<const Action*> body_;
};

/// Starts the life of a variable: unassigned, whatever a former turn of a loop left there.
struct DeclareAction final : Action {
  explicit DeclareAction(const Place* variable) : variable_(variable) {}
  Flow Run(Machine& machine) const override;

 private:
  const Place* variable_;
};

struct DeclareArrayAction final : Action {
  DeclareArrayAction(const Place* variable, Type element, const Node* size, std::vector<const Node*> elements)
      : variable_(variable), element_(element), size_(size), elements_(std::move(elements)) {}
  Flow Run(Machine& machine) const override;

 private:
  const Place* variable_;
  Type element_;
  const Node* size_;
  std::vector<const Node*> elements_;
};

struct IfAction final : Action {
  IfAction(const Node* condition, const Action* yes, const Action* no)
      : condition_(condition), yes_(yes), no_(no) {}
  Flow Run(Machine& machine) const override;

 private:
  const Node* condition_;
  const Action* yes_;
  const Action* no_;  // may be null
};

/// while and for (;;): each part but the body may be null.
struct LoopAction final : Action {
  LoopAction(const Node* initial, const Node* condition, const Node* step, const Action* body)
      : initial_(initial), condition_(condition), step_(step), body_(body) {}
  Flow Run(Machine& machine) const override;

 private:
  const Node* initial_;
  const Node* condition_;
  const Node* step_;
  const Action* body_;
};

/// for i in from : to by step do; both ends count. What DOORS makes of a body that changes the variable is
/// not known, so that is an error.
struct RangeAction final : Action {
  RangeAction(const Place* variable, const Node* from, const Node* to, const Node* by, const Action* body)
      : variable_(variable), from_(from), to_(to), by_(by), body_(body) {}
  Flow Run(Machine& machine) const override;

 private:
  const Place* variable_;
  const Node* from_;
  const Node* to_;
  const Node* by_;  // may be null
  const Action* body_;
};

/// for v in collection do.
struct CollectionAction final : Action {
  CollectionAction(const Place* variable, Type type, const LoopEntry& loop, const Node* collection,
                   const Action* body)
      : variable_(variable), variable_type_(type), loop_(loop), collection_(collection), body_(body) {}
  Flow Run(Machine& machine) const override;

 private:
  Next Start(Machine& machine) const;
  bool Advance(const Next& next, Machine& machine) const;

  const Place* variable_;
  Type variable_type_;
  const LoopEntry& loop_;
  const Node* collection_;
  const Action* body_;
};

/// break and continue.
struct JumpAction final : Action {
  explicit JumpAction(Flow where) : where_(where) {}
  Flow Run(Machine&) const override { return where_; }

 private:
  Flow where_;
};

struct ReturnAction final : Action {
  explicit ReturnAction(const Node* value) : result_(value) {}
  Flow Run(Machine& machine) const override {
    if (result_) machine.SetResult(result_->Evaluate(machine));
    return Flow::kReturn;
  }

 private:
  const Node* result_;  // may be null
};

struct RunLimitAction final : Action {
  explicit RunLimitAction(std::int32_t limit) : limit_(limit) {}
  Flow Run(Machine& machine) const override {
    machine.State().budget.SetRunLimit(limit_);
    return Flow::kNext;
  }

 private:
  std::int32_t limit_;
};

}  // namespace kestrune::dxl
