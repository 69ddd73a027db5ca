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
  std::optional<Cost> bare;       // of a tree of what is read, and of having it
  std::optional<Cost> bare_scan;  // of reading it and keeping nothing
};

/// Prints a table in Markdown. Its column "growth" is the time outside of the host in proportion to that of a tenth of the
/// objects: 10 is linear.
void PrintReport(const std::vector<Result>& results, std::ostream& out);

}  // namespace kestrune::bench
