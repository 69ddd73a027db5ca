#include "doors/frmConnectProgress.h"

#include "common/Utilities.h"

namespace kestrune {

namespace {

constexpr TextView kProgId = u"Doors.Application";

int StatusTextOf(DoorsState state) {
  switch (state) {
    case DoorsState::kStarting:
      return text::kDoorsInitializing;
    case DoorsState::kLogin:
      return text::kDoorsLogin;
    case DoorsState::kPassword:
      return text::kDoorsPassword;
    default:
      return text::kDoorsNotRunning;
  }
}

}  // namespace

frmConnectProgress::frmConnectProgress(const Platform& platform) : platform_(platform) {
  cmdCancel.Click = [this] { Close(); };
  Timer1.Tick = [this] { Timer1_Tick(); };
}

void frmConnectProgress::Form_Load() {
  SetCaption(LoadResText(text::kConnectProgressCaption));
  cmdCancel.SetCaption(LoadResText(text::kCancel));
  ApplyStandardFont(*this);
  Timer1.Interval = 100;
}

Object frmConnectProgress::GetDoors() {
  WindowHandle window = 0;
  if (CurrentDoorsState(window) == DoorsState::kReady) return platform_.objects.Create(kProgId);
  platform_.desktop.ShowModal(*this);
  return doors_;
}

DoorsState frmConnectProgress::CurrentDoorsState(WindowHandle& window) {
  const DoorsWindow found = FindDoorsWindow(platform_.desktop);
  window = found.DoorsHwnd;
  return StateOf(found);
}

void frmConnectProgress::Timer1_Tick() {
  WindowHandle window = 0;
  const DoorsState state = CurrentDoorsState(window);
  if (state == DoorsState::kReady) {
    const Object made = platform_.objects.Create(kProgId);
    if (!IsOpen()) return;  // cancelled while DOORS was making it
    doors_ = made;
    return Close();
  }
  lblStatus.SetCaption(LoadResText(StatusTextOf(state)));
  // The login dialog starts behind the host's window; it is kept in front for as long as it waits.
  if (state == DoorsState::kLogin) platform_.desktop.BringToFront(window);
}

}  // namespace kestrune
