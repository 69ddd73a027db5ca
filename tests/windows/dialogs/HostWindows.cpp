#include "tests/windows/dialogs/HostWindows.h"

#include <utility>

namespace kestrune::testing {

namespace {

HWND NewWindow(const wchar_t* title, DWORD style, HWND owner) {
  return CreateWindowExW(0, L"Static", title, style | WS_VISIBLE, 10, 10, 600, 400, owner, nullptr, nullptr,
                         nullptr);
}

}  // namespace

HostWindows::HostWindows()
    : main_(NewWindow(L"Orim Studio", WS_OVERLAPPEDWINDOW, nullptr)),
      pane_(NewWindow(L"Pane", WS_POPUP | WS_CAPTION, main_)),
      second_(NewWindow(L"Orim Studio: second window", WS_OVERLAPPEDWINDOW, nullptr)),
      resting_(NewWindow(L"Resting", WS_OVERLAPPEDWINDOW | WS_DISABLED, nullptr)) {}

HostWindows::~HostWindows() {
  for (const HWND window : {resting_, second_, pane_, main_}) DestroyWindow(window);
}

std::string HostWindows::Enabled() const {
  const std::pair<HWND, const char*> windows[] = {
      {main_, "main"}, {pane_, "pane"}, {second_, "second"}, {resting_, "resting"}};
  std::string names;
  for (const auto& [window, name] : windows)
    if (IsWindowEnabled(window)) names += (names.empty() ? "" : " ") + std::string(name);
  return names;
}

}  // namespace kestrune::testing
