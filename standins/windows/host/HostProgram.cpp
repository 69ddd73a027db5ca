#include "standins/windows/host/HostProgram.h"

#include "platform/Files.h"
#include "platform/com/ComObjectFactory.h"
#include "platform/windows/Module.h"
#include "standins/windows/host/ByReference.h"

namespace kestrune::standins {

namespace {

constexpr TextView kProgId = u"Kestrune.OrimDoors";

}  // namespace

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
  doors_.SetPhase(DoorsPhase::kReady);
  session_.Load(AddIn(ByReference(ComObjectFactory().Create(kProgId))));
}

HostProgram::~HostProgram() {
  try {
    session_.Unload();
  } catch (const AutomationError&) {
    // The host is closing, and has nobody left to tell.
  }
}

}  // namespace kestrune::standins
