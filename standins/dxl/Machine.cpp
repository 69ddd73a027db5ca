#include "standins/dxl/Machine.h"

namespace kestrune::dxl {

namespace {

/// Levels of nesting, over all functions that are running, at which a script's recursion ends. A level takes
/// a few hundred bytes of the native stack.
constexpr int kMaxDepth = 4000;

/// Restores a variable at the end of a block, also when an exception ends it.
template <typename T>
class Restored {
 public:
  explicit Restored(T& variable) : variable_(variable), before_(variable) {}
  ~Restored() { variable_ = before_; }
  Restored(const Restored&) = delete;
  Restored& operator=(const Restored&) = delete;

 private:
  T& variable_;
  T before_;
};

}  // namespace

Machine::Machine(const Program& program, Host& host, Budget& budget)
    : program_(program),
      scope_(budget),
      state_(host, budget),
      globals_(static_cast<std::size_t>(program.global_count)) {}

void Machine::Run() {
  try {
    program_.body->Run(*this);
  } catch (const Halted&) {
  } catch (const OutOfBudget& end) {
    throw Stopped{at_, end.message};
  }
}

Value Machine::Fail(Position at, const Text& message, Type type) {
  if (!state_.holds_errors) throw Stopped{at, message};
  if (state_.held_error.empty()) state_.held_error = message;  // what follows from the first is no news
  return Value::Default(type);
}

Value Machine::Call(const Function& function, const std::vector<const Node*>& arguments, Position at) {
  const Restored depth(depth_);
  depth_ += function.depth;
  if (depth_ > kMaxDepth) throw Stopped{at, u"recursion too deep in function (" + function.name + u")"};

  const Lease lease(static_cast<std::size_t>(function.frame_size) * sizeof(Value));
  std::vector<Value> frame(static_cast<std::size_t>(function.frame_size));
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    frame[i] = function.parameters[i].by_reference
                   ? Value::Reference(static_cast<const Place*>(arguments[i])->Locate(*this))
                   : arguments[i]->Evaluate(*this);
  }
  const Restored locals(locals_);
  locals_ = frame.data();
  const Flow flow = function.body->Run(*this);
  if (function.result == kVoid) return {};
  if (flow != Flow::kReturn)
    return Fail(at, u"function (" + function.name + u") ended without a return", function.result);
  return std::move(result_);
}

}  // namespace kestrune::dxl
