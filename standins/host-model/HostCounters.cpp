#include "standins/host-model/HostCounters.h"

namespace kestrune::standins {

void HostCounters::CountCall(const Text& use) {
  ++calls_;
  ++by_member_[use];
}

}  // namespace kestrune::standins
