// What a piece of work costs: time, memory and use of the host, measured in a process of its own.
#pragma once

#include <functional>
#include <vector>

namespace kestrune::bench {

struct Cost {
  double seconds = 0;
  double host_seconds = 0;    // of these, within the host
  double kernel_seconds = 0;  // of these, in the kernel: nearly all for memory that is touched first
  double peak_mb = 0;         // how far memory grew beyond what there was before
  double address_mb = 0;      // how far the process' address space did
  long long calls = 0;        // of the host's automation
  long long writes = 0;       // to the host's model
};

/// Of rounds of the same work: the one in the middle by its time, with the peaks in the middle by theirs.
Cost Median(std::vector<Cost> rounds);

/// Runs `work` in a child of this process, so that each measurement starts with
/// the same small heap and leaves nothing behind. Throws std::runtime_error
/// when it fails there; what it said stands in standard error.
Cost InChild(const std::function<Cost()>& work);

/// The processor time that this thread has taken, by itself and in the
/// kernel. Unlike the time on the wall it does not count what the rest of the
/// machine does meanwhile; nothing that is measured here waits for anything.
double CpuSeconds();

/// Time and memory of `work`, in the process that calls this.
///
/// Memory is the highest resident set of the process during the work less the one at its start, as the kernel
/// counts them: heap of whatever allocator, this code's and libxml2's alike, and file pages that were
/// touched. Memory that was allocated and never touched is in the address space only.
Cost Measure(const std::function<void()>& work);

}  // namespace kestrune::bench
