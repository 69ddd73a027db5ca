// All that was measured in one run, side by side.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "bench/Cost.h"

namespace kestrune::bench {

struct Result {
  std::string phase;
  int objects = 0;
  Cost ours;
  std::optional<Cost> bare;  // of the least that the phase could cost

  double TimeRatio() const { return ours.seconds / bare->seconds; }
  double MemoryRatio() const { return ours.peak_mb / bare->peak_mb; }
};

/// Prints a table in Markdown. Its column "growth" is the time outside of the kernel in proportion to that of
/// a tenth of the objects: 10 is linear.
void PrintReport(const std::vector<Result>& results, std::ostream& out);

}  // namespace kestrune::bench
