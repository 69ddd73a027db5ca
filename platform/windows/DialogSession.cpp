#include "platform/windows/DialogSession.h"

namespace kestrune {

void DialogSession::ShowWaiting(bool on) {
  IsWaiting = on;
  SetCursor(LoadCursorW(nullptr, on ? IDC_WAIT : IDC_ARROW));
}

NoWait::NoWait(DialogSession& session) : session_(session), was_waiting_(session.IsWaiting) {
  if (was_waiting_) session_.ShowWaiting(false);
}

NoWait::~NoWait() {
  if (was_waiting_) session_.ShowWaiting(true);
}

}  // namespace kestrune
