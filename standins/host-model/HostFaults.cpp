#include "standins/host-model/HostFaults.h"

namespace kestrune::standins {

void HostFaults::FailCall(int n, AutomationError failure) {
  calls_left_ = n;
  call_failure_ = std::move(failure);
}

void HostFaults::FailMember(Text use, AutomationError failure) {
  members_.insert_or_assign(std::move(use), std::move(failure));
}

void HostFaults::FailElementField(Text field, Moment moment, AutomationError failure) {
  fields_.insert_or_assign(std::move(field), Order{moment, std::move(failure)});
}

void HostFaults::FailTaggedValue(Text name, Moment moment, AutomationError failure) {
  tagged_values_.insert_or_assign(std::move(name), Order{moment, std::move(failure)});
}

void HostFaults::OnCall(TextView use) {
  if (const auto found = members_.find(use); found != members_.end()) throw found->second;
  if (!call_failure_ || --calls_left_ > 0) return;
  const AutomationError failure = *call_failure_;
  call_failure_.reset();
  throw failure;
}

void HostFaults::Raise(const Orders& orders, TextView name, Moment moment) {
  if (orders.empty()) return;
  const auto found = orders.find(name);
  if (found != orders.end() && found->second.when == moment) throw found->second.failure;
}

}  // namespace kestrune::standins
