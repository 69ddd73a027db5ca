// Tells the time that is spent in an automation object's own code from that of its user.
#pragma once

#include "bench/Cost.h"
#include "platform/Automation.h"

namespace kestrune::bench {

/// Passes everything on to `inner`, and to the objects that it hands out, and adds the time that they take to
/// `seconds`, which must outlive them.
class TimedObject : public Dispatch {
 public:
  TimedObject(std::shared_ptr<Dispatch> inner, double& seconds)
      : inner_(std::move(inner)), seconds_(seconds) {}

  Variant Invoke(Access access, TextView member, Args args) override {
    Variant result = InvokeTimed(access, member, std::move(args));
    if (!result.IsObject() || !result.ToObject()) return result;
    return Object(std::make_shared<TimedObject>(result.ToObject().Peer(), seconds_));
  }

 private:
  struct Stopwatch {  // stops also when an exception passes
    double& seconds;
    double start = CpuSeconds();
    ~Stopwatch() { seconds += CpuSeconds() - start; }
  };

  Variant InvokeTimed(Access access, TextView member, Args args) {
    const Stopwatch stopwatch{seconds_};
    return inner_->Invoke(access, member, std::move(args));
  }

  std::shared_ptr<Dispatch> inner_;
  double& seconds_;
};

}  // namespace kestrune::bench
