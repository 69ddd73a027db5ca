#include "tests/windows/dialogs/DoorsWindow.h"

#include <stdexcept>

#include "platform/windows/Module.h"

namespace kestrune::testing {

namespace {

void RegisterWindowClass() {
  static const ATOM registered = [] {
    WNDCLASSW description = {.lpfnWndProc = DefWindowProcW, .hInstance = ThisModule()};
    description.lpszClassName = L"DOORSWindow";
    return RegisterClassW(&description);
  }();
  if (!registered) throw std::runtime_error("no window class");
}

}  // namespace

DoorsWindow::DoorsWindow(DWORD style, bool is_visible) {
  RegisterWindowClass();
  window_ = CreateWindowExW(WS_EX_NOACTIVATE, L"DOORSWindow", L"DOORS", style, 900, 600, 200, 100, nullptr,
                            nullptr, ThisModule(), nullptr);
  if (is_visible) ShowWindow(window_, SW_SHOWNOACTIVATE);
}

}  // namespace kestrune::testing
