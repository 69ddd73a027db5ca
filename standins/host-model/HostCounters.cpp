#include "standins/host-model/HostCounters.h"

namespace kestrune::standins {

void HostCounters::CountCall(TextView class_name, Access access, TextView member) {
  ++calls_;
  Text key = access == Access::kGet ? u"Get " : access == Access::kPut ? u"Put " : u"Call ";
  key.append(class_name).append(u".").append(member);
  ++by_member_[std::move(key)];
}

}  // namespace kestrune::standins
