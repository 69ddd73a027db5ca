// The host's output tab "DOORS", where start-up and diagnostics go.
#pragma once

#include "orim/Repository.h"

namespace kestrune {

class OutputTab {
 public:
  explicit OutputTab(orim::Repository repository) : repository_(std::move(repository)) {}
  void Create() const { repository_.CreateOutputTab(kName); }
  void Write(const Text& line) const { repository_.WriteOutput(kName, line); }

 private:
  static constexpr const char16_t* kName = u"DOORS";
  orim::Repository repository_;
};

}  // namespace kestrune
