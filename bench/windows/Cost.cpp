#include "bench/Cost.h"

#include <windows.h>
// After the system's own types.
#include <psapi.h>

namespace kestrune::bench {

namespace {

double InMb(SIZE_T bytes) {
  return static_cast<double>(bytes) / (1024 * 1024);
}

PROCESS_MEMORY_COUNTERS Memory() {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters;
}

}  // namespace

double CpuSeconds() {
  FILETIME created, ended, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  const auto seconds = [](const FILETIME& time) {
    return (static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime) * 1e-7;
  };
  return seconds(kernel) + seconds(user);
}

// One measurement a process: the peak of the working set cannot be reset.
Cost Measure(const std::function<void()>& work) {
  const double before = InMb(Memory().WorkingSetSize);
  const double start = CpuSeconds();
  work();
  return {.seconds = CpuSeconds() - start, .peak_mb = InMb(Memory().PeakWorkingSetSize) - before};
}

}  // namespace kestrune::bench
