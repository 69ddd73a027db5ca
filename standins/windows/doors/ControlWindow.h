// The window through which other programs steer kestrune-doors.
#pragma once

#include <functional>

#include "standins/windows/doors/DoorsControl.h"

namespace kestrune::standins {

/// Hands each message from WM_APP on to `handler`, on the thread that made it, and answers what that returns.
class ControlWindow {
 public:
  using Handler = std::function<LRESULT(UINT message, WPARAM parameter)>;

  explicit ControlWindow(Handler handler);
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;
  ~ControlWindow() { DestroyWindow(window_); }

 private:
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  Handler handler_;
  HWND window_;
};

}  // namespace kestrune::standins
