// The windows of a host, as the calling thread shows them: a main window, a floating pane, a second window of
// its own, and one that the host itself has disabled.
#pragma once

#include <string>
#include <utility>
#include <windows.h>

namespace kestrune::testing {

class HostWindows {
 public:
  HostWindows() = default;
  HostWindows(const HostWindows&) = delete;
  HostWindows& operator=(const HostWindows&) = delete;
  ~HostWindows() {
    for (const HWND window : {resting_, second_, pane_, main_}) DestroyWindow(window);
  }

  HWND Main() const { return main_; }
  HWND Pane() const { return pane_; }
  /// The names of those that can be used, such as "main pane second".
  std::string Enabled() const {
    const std::pair<HWND, const char*> windows[] = {
        {main_, "main"}, {pane_, "pane"}, {second_, "second"}, {resting_, "resting"}};
    std::string names;
    for (const auto& [window, name] : windows)
      if (IsWindowEnabled(window)) names += (names.empty() ? "" : " ") + std::string(name);
    return names;
  }

 private:
  static HWND NewWindow(const wchar_t* title, DWORD style, HWND owner = nullptr) {
    return CreateWindowExW(0, L"Static", title, style | WS_VISIBLE, 10, 10, 600, 400, owner, nullptr, nullptr,
                           nullptr);
  }
  HWND main_ = NewWindow(L"Orim Studio", WS_OVERLAPPEDWINDOW);
  HWND pane_ = NewWindow(L"Pane", WS_POPUP | WS_CAPTION, main_);
  HWND second_ = NewWindow(L"Orim Studio: second window", WS_OVERLAPPEDWINDOW);
  HWND resting_ = NewWindow(L"Resting", WS_OVERLAPPEDWINDOW | WS_DISABLED);
};

}  // namespace kestrune::testing
