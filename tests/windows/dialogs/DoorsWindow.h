// A window as DOORS has it.
#pragma once

#include <stdexcept>
#include <windows.h>

#include "platform/windows/Module.h"

namespace kestrune::testing {

class DoorsWindow {
 public:
  static constexpr DWORD kLogin = WS_POPUP | WS_CLIPSIBLINGS | WS_CAPTION | WS_SYSMENU;
  static constexpr DWORD kMain = WS_OVERLAPPEDWINDOW | WS_CLIPSIBLINGS;

  DoorsWindow(DWORD style, bool is_visible) {
    WNDCLASSW description = {.lpfnWndProc = DefWindowProcW, .hInstance = ThisModule()};
    description.lpszClassName = L"DOORSWindow";
    RegisterClassW(&description);  // the second window finds it there
    window_ = CreateWindowExW(WS_EX_NOACTIVATE, L"DOORSWindow", L"DOORS", style, 900, 600, 200, 100, nullptr,
                              nullptr, ThisModule(), nullptr);
    if (!window_) throw std::runtime_error("no window of DOORS");
    if (is_visible) ShowWindow(window_, SW_SHOWNOACTIVATE);
  }
  ~DoorsWindow() { DestroyWindow(window_); }
  DoorsWindow(const DoorsWindow&) = delete;
  DoorsWindow& operator=(const DoorsWindow&) = delete;
  HWND Window() const { return window_; }

 private:
  HWND window_ = nullptr;
};

}  // namespace kestrune::testing
