// The windows of a host, as the calling thread shows them: a main window, a floating pane, a second window of
// its own, and one that the host itself has disabled.
#pragma once

#include <string>
#include <windows.h>

namespace kestrune::testing {

class HostWindows {
 public:
  HostWindows();
  HostWindows(const HostWindows&) = delete;
  HostWindows& operator=(const HostWindows&) = delete;
  ~HostWindows();

  HWND Main() const { return main_; }
  HWND Pane() const { return pane_; }
  /// The names of those that can be used, such as "main pane second".
  std::string Enabled() const;

 private:
  HWND main_, pane_, second_, resting_;
};

}  // namespace kestrune::testing
