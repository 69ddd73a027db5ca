#include "platform/windows/DialogFocus.h"

namespace kestrune {

namespace {

void Focus(HWND dialog, HWND control) {
  if (control) SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

}  // namespace

void DialogFocus::GiveTo(HWND control) {
  if (is_opening_)
    wanted_ = control;
  else
    Focus(dialog_, control);
}

void DialogFocus::Begin() {
  is_opening_ = false;
  Focus(dialog_, wanted_ ? wanted_ : GetNextDlgTabItem(dialog_, nullptr, FALSE));
}

void DialogFocus::Keep(HWND before) const {
  if (is_opening_ || GetActiveWindow() != dialog_ || IsReachable(GetFocus())) return;
  Focus(dialog_, GetNextDlgTabItem(dialog_, IsChild(dialog_, before) ? before : nullptr, FALSE));
}

bool DialogFocus::IsReachable(HWND window) const {
  if (!IsChild(dialog_, window)) return false;
  for (; window != dialog_; window = GetParent(window))
    if ((GetWindowLongW(window, GWL_STYLE) & (WS_VISIBLE | WS_DISABLED)) != WS_VISIBLE) return false;
  return true;
}

}  // namespace kestrune
