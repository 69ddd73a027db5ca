#include "workbench/windows/doors/RealDoorsWindows.h"

#include <utility>

#include "platform/win32/Failure.h"
#include "platform/win32/Module.h"
#include "platform/win32/TopWindows.h"

namespace kestrune::workbench {

namespace {

constexpr const wchar_t* kWindowClass = L"DOORSWindow";
constexpr DWORD kStartUpScreen =
    WS_POPUP | WS_CLIPSIBLINGS;  // an overlapped window would get a caption by itself
constexpr DWORD kLoginDialog = kStartUpScreen | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kMainWindow = WS_OVERLAPPEDWINDOW | WS_CLIPSIBLINGS;
constexpr int kWidth = 320;
constexpr int kHeight = 200;

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_CLOSE) return 0;
  return DefWindowProcW(window, message, wparam, lparam);
}

/// In the lower right corner, where it is in nobody's way.
HWND NewWindow(DWORD style) {
  const int x = GetSystemMetrics(SM_CXSCREEN) - kWidth;
  const int y = GetSystemMetrics(SM_CYSCREEN) - kHeight;
  const HWND window = CreateWindowExW(0, kWindowClass, L"DOORS", style, x, y, kWidth, kHeight, nullptr,
                                      nullptr, ThisModule(), nullptr);
  if (!window) Require(HRESULT_FROM_WIN32(GetLastError()));
  return window;
}

DWORD StyleIn(DoorsState state) {
  switch (state) {
    case DoorsState::kStartUp:
      return kStartUpScreen;
    case DoorsState::kLogin:
    case DoorsState::kPasswordCheck:
      return kLoginDialog;
    default:
      return kMainWindow;
  }
}

}  // namespace

RealDoorsWindows::RealDoorsWindows() {
  WNDCLASSW description = {.lpfnWndProc = OnMessage, .hInstance = ThisModule()};
  description.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
  description.lpszClassName = kWindowClass;
  if (!RegisterClassW(&description)) Require(HRESULT_FROM_WIN32(GetLastError()));
}

void RealDoorsWindows::Show(DoorsState state) {
  if (main_) DestroyWindow(std::exchange(main_, nullptr));
  if (state == DoorsState::kNotRunning) return;
  main_ = NewWindow(StyleIn(state));
  if (state != DoorsState::kPasswordCheck) ShowWindow(main_, SW_SHOWNOACTIVATE);
}

WindowHandle RealDoorsWindows::Open() {
  const HWND window = NewWindow(kMainWindow);
  ShowWindow(window, SW_SHOWNORMAL);
  SetForegroundWindow(window);
  return HandleOf(window);
}

void RealDoorsWindows::Close(WindowHandle window) {
  DestroyWindow(WindowOf(window));
}

}  // namespace kestrune::workbench
