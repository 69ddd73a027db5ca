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
  return cost.seconds - cost.kernel_seconds;
}

std::string Growth(const Result& result, const std::vector<Result>& results) {
  const auto smaller = std::find_if(results.begin(), results.end(), [&](const Result& other) {
    return other.phase == result.phase && other.objects * 10 == result.objects;
  });
  return smaller == results.end() ? "" : Fixed(OwnSeconds(result.ours) / OwnSeconds(smaller->ours), 1);
}

}  // namespace

void PrintReport(const std::vector<Result>& results, std::ostream& out) {
  out << "| phase | objects | seconds | of these in the host | in the kernel | : bare | growth | calls | "
         "writes | peak MB | "
         ": bare |\n"
      << "|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n";
  for (const Result& result : results) {
    const Cost& cost = result.ours;
    out << "| " << result.phase << " | " << result.objects << " | " << Fixed(cost.seconds, 3) << " | "
        << Fixed(cost.host_seconds, 3) << " | " << Fixed(cost.kernel_seconds, 3) << " | "
        << (result.bare ? Fixed(result.TimeRatio(), 2) : "") << " | " << Growth(result, results) << " | "
        << cost.calls << " | " << cost.writes << " | " << Fixed(cost.peak_mb, 1) << " | "
        << (result.bare ? Fixed(result.MemoryRatio(), 2) : "") << " |\n";
  }
}

}  // namespace kestrune::bench
