#include "standins/dxl/Actions.h"

#include <array>

namespace kestrune::dxl {

namespace {

constexpr std::int32_t kMaxArraySize = 1'000'000;

/// Runs a loop's body; false when the loop is to end, and then `flow` is what the loop hands on.
bool RunTurn(const Action& body, Position at, Machine& machine, Flow& flow) {
  machine.Tick(at);
  flow = body.Run(machine);
  if (flow == Flow::kReturn) return false;
  const bool goes_on = flow != Flow::kBreak;
  flow = Flow::kNext;
  return goes_on;
}

}  // namespace

Flow BlockAction::Run(Machine& machine) const {
  for (const Action* action : body_) {
    machine.Tick(action->at);
    if (const Flow flow = action->Run(machine); flow != Flow::kNext) return flow;
  }
  return Flow::kNext;
}

Flow DeclareAction::Run(Machine& machine) const {
  *variable_->Locate(machine) = Value();
  return Flow::kNext;
}

Flow DeclareArrayAction::Run(Machine& machine) const {
  std::int32_t size = static_cast<std::int32_t>(elements_.size());
  if (size_) size = size_->Evaluate(machine).AsInt();
  if (size < 0 || size > kMaxArraySize) throw Stopped{at, u"impossible array size (" + ToText(size) + u")"};
  machine.State().budget.SpendOn(static_cast<std::size_t>(size));
  Value array = Value::Array(element_, static_cast<std::size_t>(size));
  for (std::size_t i = 0; i < elements_.size(); ++i) array.AsArray()[i] = elements_[i]->Evaluate(machine);
  *variable_->Locate(machine) = std::move(array);
  return Flow::kNext;
}

Flow IfAction::Run(Machine& machine) const {
  if (condition_->Evaluate(machine).AsBool()) return yes_->Run(machine);
  return no_ ? no_->Run(machine) : Flow::kNext;
}

Flow LoopAction::Run(Machine& machine) const {
  Flow flow = Flow::kNext;
  if (initial_) initial_->Evaluate(machine);
  while (!condition_ || condition_->Evaluate(machine).AsBool()) {
    if (!RunTurn(*body_, at, machine, flow)) break;
    if (step_) step_->Evaluate(machine);
  }
  return flow;
}

Flow RangeAction::Run(Machine& machine) const {
  const long long from = from_->Evaluate(machine).AsInt();
  const long long to = to_->Evaluate(machine).AsInt();
  const long long by = by_ ? by_->Evaluate(machine).AsInt() : 1;
  if (by <= 0) throw Stopped{at, u"a range needs a step above 0"};
  Flow flow = Flow::kNext;
  for (long long i = from; i <= to; i += by) {
    const auto turn = static_cast<std::int32_t>(i);
    *variable_->Locate(machine) = Value(turn);
    if (!RunTurn(*body_, at, machine, flow)) break;
    const Value& after = *variable_->Locate(machine);
    if (!after.IsAssigned() || after.AsInt() != turn)
      throw Stopped{at, u"the variable of a range was changed inside its loop"};
  }
  return flow;
}

Flow CollectionAction::Run(Machine& machine) const {
  const Next next = Start(machine);
  Flow flow = Flow::kNext;
  while (Advance(next, machine) && RunTurn(*body_, at, machine, flow)) {
  }
  return flow;
}

/// Empty when there is nothing to loop over because of an error that noError() holds.
Next CollectionAction::Start(Machine& machine) const {
  std::array<Value, 1> collection = {collection_->Evaluate(machine)};
  try {
    if (!collection[0].AsHandle()) throw ScriptError(u"null handle given to a for loop");
    Call call(machine.State(), collection, {&loop_.collection, 1});
    return loop_.start(call);
  } catch (const ScriptError& error) {
    machine.Fail(at, error.message, kVoid);
    return {};
  }
}

bool CollectionAction::Advance(const Next& next, Machine& machine) const {
  Value element;
  try {
    if (!next || !next(element)) return false;
    if (loop_.variable != kAny) element = Promised(std::move(element), variable_type_);
    if (element.Kind() != variable_type_)
      throw ScriptError(u"value of another type than the loop's variable");
  } catch (const ScriptError& error) {
    machine.Fail(at, error.message, kVoid);
    return false;
  }
  *variable_->Locate(machine) = std::move(element);
  return true;
}

}  // namespace kestrune::dxl
