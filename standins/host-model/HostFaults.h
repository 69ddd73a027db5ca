// Failures on demand: what a test or a demonstration asks the host to refuse.
#pragma once

#include <map>
#include <optional>

#include "platform/Automation.h"

namespace kestrune::standins {

class HostFaults {
 public:
  enum class Moment { kPut, kSave };

  /// The n-th use of any member from now fails with `failure`, once; 1 is the next one.
  void FailCall(int n, AutomationError failure);
  /// From now on every use of a member fails, named as in HostCounters::ByMember.
  void FailMember(Text use, AutomationError failure);
  /// From now on every Put of the element's member `field`, or every Save that changed it, fails.
  void FailElementField(Text field, Moment moment, AutomationError failure);
  /// The same for the tagged values named `name`, of whatever element; giving a new one its value is a Put.
  void FailTaggedValue(Text name, Moment moment, AutomationError failure);
  void Clear() { *this = {}; }

  /// Asked by the host's objects at the moment in question; they throw when a failure was ordered for it.
  void OnCall(TextView use);
  void OnElementField(TextView field, Moment moment) const { Raise(fields_, field, moment); }
  void OnTaggedValue(TextView name, Moment moment) const { Raise(tagged_values_, name, moment); }

 private:
  struct Order {
    Moment when;
    AutomationError failure;
  };
  using Orders = std::map<Text, Order, std::less<>>;
  static void Raise(const Orders& orders, TextView name, Moment moment);

  int calls_left_ = 0;
  std::optional<AutomationError> call_failure_;
  std::map<Text, AutomationError, std::less<>> members_;
  Orders fields_;
  Orders tagged_values_;
};

}  // namespace kestrune::standins
