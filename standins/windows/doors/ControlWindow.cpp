#include "standins/windows/doors/ControlWindow.h"

#include "platform/windows/Module.h"

namespace kestrune::standins {

ControlWindow::ControlWindow(Handler handler) : handler_(std::move(handler)) {
  WNDCLASSW description = {.lpfnWndProc = OnMessage, .hInstance = ThisModule()};
  description.lpszClassName = kDoorsControlClass;
  RegisterClassW(&description);
  window_ = CreateWindowExW(0, kDoorsControlClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, ThisModule(),
                            nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

LRESULT CALLBACK ControlWindow::OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* self = reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!self || message < WM_APP || message > 0xBFFF) return DefWindowProcW(window, message, wparam, lparam);
  return self->handler_(message, wparam);
}

}  // namespace kestrune::standins
