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
  Text Line;
  std::int32_t ItemId;
};

struct Host {
  Database Model;
  HostCounters Counters = {};
  HostFaults Faults = {};
  std::map<Text, std::vector<OutputLine>, std::less<>> OutputTabs = {};
  std::vector<std::int32_t> RefreshedPackages = {};
  std::int32_t LibraryBuild = 900;
  ColumnSpelling Columns = ColumnSpelling::kAsWritten;
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
    host_->Counters.CountCall(Self::kClassName, access, member);
    host_->Faults.OnCall();
  }

  HostPtr host_;
};

}  // namespace kestrune::standins
