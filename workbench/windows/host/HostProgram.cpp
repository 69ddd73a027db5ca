#include "workbench/windows/host/HostProgram.h"

#include "platform/Files.h"
#include "platform/win32/Module.h"

namespace kestrune::workbench {

HostWindow::HostWindow() {
  WNDCLASSW description = {.lpfnWndProc = DefWindowProcW, .hInstance = ThisModule()};
  description.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
  description.lpszClassName = L"KestruneHost";
  RegisterClassW(&description);
  window_ = CreateWindowExW(0, description.lpszClassName, L"Orim Studio", WS_OVERLAPPEDWINDOW, 0, 0, 900, 700,
                            nullptr, nullptr, ThisModule(), nullptr);
  ShowWindow(window_, SW_SHOWNORMAL);
  SetForegroundWindow(window_);
}

HostProgram::HostProgram(const Settings& settings)
    : session_(OrimModel::Open(ToPath(settings.model)), settings.package), doors_(settings.doors) {
  doors_.SetState(DoorsState::kReady);
  session_.Load(add_in_);
}

HostProgram::~HostProgram() {
  try {
    add_in_.Orim_Disconnect();
  } catch (const AutomationError&) {
    // The host is closing, and has nobody left to tell.
  }
}

}  // namespace kestrune::workbench
