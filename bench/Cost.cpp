#include "bench/Cost.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <malloc.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

namespace kestrune::bench {

namespace {

/// A line of the kernel's account of this process, in megabytes.
double StatusMb(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with(name + ":")) return std::stod(line.substr(name.size() + 1)) / 1024;  // it counts kB
  throw std::runtime_error("the kernel does not tell " + name);
}

void ResetPeak() {
  malloc_trim(0);  // or the work would begin with memory that its preparation has left
  std::ofstream clear("/proc/self/clear_refs");
  if (!(clear << "5" << std::flush)) throw std::runtime_error("the peak of memory cannot be reset");
}

[[noreturn]] void RunAndReport(const std::function<Cost()>& work, int pipe) {
  try {
    const Cost cost = work();
    _exit(write(pipe, &cost, sizeof cost) == sizeof cost ? 0 : 1);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << std::endl;
    _exit(1);
  }
}

double KernelSeconds() {
  rusage usage{};
  getrusage(RUSAGE_THREAD, &usage);
  return static_cast<double>(usage.ru_stime.tv_sec) + static_cast<double>(usage.ru_stime.tv_usec) * 1e-6;
}

}  // namespace

double CpuSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

Cost Median(std::vector<Cost> rounds) {
  const auto middle = rounds.begin() + static_cast<std::ptrdiff_t>(rounds.size() / 2);
  const auto take = [&](double Cost::*figure) {
    std::ranges::nth_element(rounds, middle, {}, figure);
    return (*middle).*figure;
  };
  const double peak = take(&Cost::peak_mb);
  const double address = take(&Cost::address_mb);
  take(&Cost::seconds);
  Cost median = *middle;
  median.peak_mb = peak;
  median.address_mb = address;
  return median;
}

Cost InChild(const std::function<Cost()>& work) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  std::cout.flush();
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no child process");
  if (child == 0) RunAndReport(work, ends[1]);
  close(ends[1]);
  Cost cost;
  const bool has_cost = read(ends[0], &cost, sizeof cost) == sizeof cost;
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (!has_cost || status != 0) throw std::runtime_error("the measured work failed");
  return cost;
}

Cost Measure(const std::function<void()>& work) {
  ResetPeak();
  const double before = StatusMb("VmRSS");
  const double addresses = StatusMb("VmSize");
  const double start = CpuSeconds();
  const double kernel_start = KernelSeconds();
  work();
  const double end = CpuSeconds();
  return {.seconds = end - start,
          .kernel_seconds = KernelSeconds() - kernel_start,
          .peak_mb = StatusMb("VmHWM") - before,
          .address_mb = StatusMb("VmPeak") - addresses};
}

}  // namespace kestrune::bench
