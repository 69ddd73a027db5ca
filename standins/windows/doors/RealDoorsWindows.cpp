#include "standins/windows/doors/RealDoorsWindows.h"

#include <utility>

#include "platform/com/Failure.h"
#include "platform/windows/Module.h"
#include "platform/windows/TopWindows.h"

namespace kestrune::standins {

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

DWORD StyleIn(DoorsPhase state) {
  switch (state) {
    case DoorsPhase::kStartUp:
      return kStartUpScreen;
    case DoorsPhase::kLogin:
    case DoorsPhase::kPasswordCheck:
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

void RealDoorsWindows::Show(DoorsPhase state) {
  if (main_) DestroyWindow(std::exchange(main_, nullptr));
  if (state == DoorsPhase::kNotRunning) return;
  main_ = NewWindow(StyleIn(state));
  if (state != DoorsPhase::kPasswordCheck) ShowWindow(main_, SW_SHOWNOACTIVATE);
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

}  // namespace kestrune::standins
