// What a run cost the host: how often its automation was used, and how often that wrote to the model.
#pragma once

#include <map>

#include "platform/Automation.h"

namespace kestrune::standins {

class HostCounters {
 public:
  /// `use` as in ByMember.
  void CountCall(const Text& use);
  void CountWrite() { ++writes_; }
  void Reset() { *this = {}; }

  /// Every use of a member: reads, writes and calls.
  long long Calls() const { return calls_; }
  /// Every Save that stored its object, and every deletion.
  long long Writes() const { return writes_; }
  /// Uses by member, such as "Call Element.Save", "Get Element.Name", "Put Element.Name".
  const std::map<Text, long long>& ByMember() const { return by_member_; }

 private:
  long long calls_ = 0;
  long long writes_ = 0;
  std::map<Text, long long> by_member_;
};

}  // namespace kestrune::standins
