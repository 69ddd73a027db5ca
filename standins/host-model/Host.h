// What all automation objects of one stand-in host share: its model file and the state of its session.
#pragma once

#include <map>
#include <memory>

#include "standins/StandInObject.h"
#include "standins/host-model/HostCounters.h"
#include "standins/host-model/HostFaults.h"
#include "standins/host-model/QueryXml.h"
#include "standins/sqlite/Database.h"

namespace kestrune::standins {

struct OutputLine {
  Text line;
  std::int32_t item_id;
};

struct Host {
  Database model;
  HostCounters counters = {};
  HostFaults faults = {};
  std::map<Text, std::vector<OutputLine>, std::less<>> output_tabs = {};
  std::vector<std::int32_t> refreshed_packages = {};
  std::int32_t library_build = 900;
  ColumnSpelling columns = ColumnSpelling::kAsWritten;
};
using HostPtr = std::shared_ptr<Host>;

/// Every refusal of the host that is not a misuse of automation itself has this number.
inline constexpr std::uint32_t kHostRefusal = 0x80040300;

[[noreturn]] inline void RefuseByHost(Text description) {
  throw AutomationError(kHostRefusal, u"Orim", std::move(description));
}

/// An automation object of the host: each use of it is counted, and fails when the faults say so.
template <typename Self>
class HostObject : public StandInObject<Self> {
 protected:
  explicit HostObject(HostPtr host) : host_(std::move(host)) {}

  void BeforeInvoke(Access access, TextView member) final {
    Text use = access == Access::kGet ? u"Get " : access == Access::kPut ? u"Put " : u"Call ";
    use.append(Self::kClassName).append(u".").append(member);
    host_->counters.CountCall(use);
    host_->faults.OnCall(use);
  }

  HostPtr host_;
};

}  // namespace kestrune::standins
