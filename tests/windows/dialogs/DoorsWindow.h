// A window as DOORS has it.
#pragma once

#include <windows.h>

namespace kestrune::testing {

class DoorsWindow {
 public:
  static constexpr DWORD kStartUp = WS_POPUP | WS_CLIPSIBLINGS;
  static constexpr DWORD kLogin = kStartUp | WS_CAPTION | WS_SYSMENU;
  static constexpr DWORD kMain = WS_OVERLAPPEDWINDOW | WS_CLIPSIBLINGS;

  DoorsWindow(DWORD style, bool is_visible);
  ~DoorsWindow() { DestroyWindow(window_); }
  DoorsWindow(const DoorsWindow&) = delete;
  DoorsWindow& operator=(const DoorsWindow&) = delete;
  HWND Window() const { return window_; }

 private:
  HWND window_;
};

}  // namespace kestrune::testing
