// The time of the dialogs, which stands still until somebody lets it pass: what the timers of a thread's
// dialogs do while a script is read does not depend on how fast the machine is.
#pragma once

#include <mutex>
#include <vector>
#include <windows.h>

namespace kestrune::standins {

class StillClock {
 public:
  /// For the dialogs of the calling thread, one at a time.
  StillClock();
  StillClock(const StillClock&) = delete;
  StillClock& operator=(const StillClock&) = delete;
  ~StillClock();

  /// From now on until a timer is due, or for longer than any dialog's interval; not on the dialogs' thread.
  void AwaitInterval();
  /// The timers that have become due tick; on the dialogs' thread.
  void Tick();

 private:
  struct DueTimer {
    HWND dialog;
    WPARAM id;
    bool operator==(const DueTimer&) const = default;
  };
  static LRESULT CALLBACK OnRetrieved(int code, WPARAM removed, LPARAM message);
  void HoldBack(MSG& message);
  std::vector<DueTimer> TakeDue();
  bool HasDue();

  static inline StillClock* clock_ = nullptr;
  HHOOK hook_;
  std::mutex mutex_;  // guards:
  std::vector<DueTimer> due_;
};

}  // namespace kestrune::standins
