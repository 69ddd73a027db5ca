// COM on a thread.
#pragma once

#include <objbase.h>

namespace kestrune::standins {

/// A single-threaded apartment on this thread for as long as it lives.
struct ComThread {
  ComThread() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ComThread(const ComThread&) = delete;
  ComThread& operator=(const ComThread&) = delete;
  ~ComThread() { CoUninitialize(); }
};

}  // namespace kestrune::standins
