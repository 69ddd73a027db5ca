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
  return cost.seconds - cost.host_seconds;
}

std::string Growth(const Result& result, const std::vector<Result>& results) {
  const auto smaller = std::find_if(results.begin(), results.end(), [&](const Result& other) {
    return other.phase == result.phase && other.objects * 10 == result.objects;
  });
  return smaller == results.end() ? "" : Fixed(OwnSeconds(result.ours) / OwnSeconds(smaller->ours), 1);
}

}  // namespace

void PrintReport(const std::vector<Result>& results, std::ostream& out) {
  out << "| phase | objects | seconds | in the host | in the kernel | : tree | : scan | growth | calls | "
         "writes "
         "| peak MB | : tree | address MB |\n"
      << "|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n";
  for (const Result& result : results) {
    const Cost& cost = result.ours;
    const auto ratio = [&](const std::optional<Cost>& bare, double Cost::*figure) {
      return bare ? Fixed(cost.*figure / (*bare).*figure, 2) : "";
    };
    out << "| " << result.phase << " | " << result.objects << " | " << Fixed(cost.seconds, 3) << " | "
        << Fixed(cost.host_seconds, 3) << " | " << Fixed(cost.kernel_seconds, 3) << " | "
        << ratio(result.bare, &Cost::seconds) << " | " << ratio(result.bare_scan, &Cost::seconds) << " | "
        << Growth(result, results) << " | " << cost.calls << " | " << cost.writes << " | "
        << Fixed(cost.peak_mb, 1) << " | " << ratio(result.bare, &Cost::peak_mb) << " | "
        << Fixed(cost.address_mb, 0) << " |\n";
  }
}

}  // namespace kestrune::bench
