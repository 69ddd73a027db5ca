#include "bench/Report.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace kestrune::bench {

namespace {

std::string Fixed(double number, int digits) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(digits) << number;
  return text.str();
}

double OwnSeconds(const Cost& cost) {
  return cost.Seconds - cost.KernelSeconds;
}

std::string Growth(const Result& result, const std::vector<Result>& results) {
  const auto smaller = std::find_if(results.begin(), results.end(), [&](const Result& other) {
    return other.Phase == result.Phase && other.Objects * 10 == result.Objects;
  });
  return smaller == results.end() ? "" : Fixed(OwnSeconds(result.Ours) / OwnSeconds(smaller->Ours), 1);
}

}  // namespace

void PrintReport(const std::vector<Result>& results, std::ostream& out) {
  out << "| phase | objects | seconds | of these in the host | in the kernel | : bare | growth | calls | "
         "writes | peak MB | "
         ": bare |\n"
      << "|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n";
  for (const Result& result : results) {
    const Cost& cost = result.Ours;
    out << "| " << result.Phase << " | " << result.Objects << " | " << Fixed(cost.Seconds, 3) << " | "
        << Fixed(cost.HostSeconds, 3) << " | " << Fixed(cost.KernelSeconds, 3) << " | "
        << (result.Bare ? Fixed(result.TimeRatio(), 2) : "") << " | " << Growth(result, results) << " | "
        << cost.Calls << " | " << cost.Writes << " | " << Fixed(cost.PeakMb, 1) << " | "
        << (result.Bare ? Fixed(result.MemoryRatio(), 2) : "") << " |\n";
  }
}

}  // namespace kestrune::bench
