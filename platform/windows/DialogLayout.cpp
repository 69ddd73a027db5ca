#include "platform/windows/DialogLayout.h"

#include <algorithm>

#include "platform/windows/WindowText.h"

namespace kestrune {

namespace {

SIZE InsideOf(HWND window) {
  RECT inside = {};
  GetClientRect(window, &inside);
  return {inside.right, inside.bottom};
}

/// In the dialog's coordinates. A combo box counts with its list, for that is the height that it is set to.
RECT RectOf(HWND dialog, HWND window) {
  RECT at = {};
  GetWindowRect(window, &at);
  RECT dropped = {};
  if (WindowClassOf(window) == u"ComboBox" &&
      SendMessageW(window, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped)))
    at.bottom = at.top + dropped.bottom - dropped.top;
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&at), 2);
  return at;
}

bool IsList(HWND window) {
  const Text name = WindowClassOf(window);
  return name == u"ListBox" || name == u"SysListView32";
}

RECT WorkAreaAt(HWND window) {
  MONITORINFO monitor = {.cbSize = sizeof monitor};
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

LONG Middle(LONG from, LONG to, LONG length, LONG screen_from, LONG screen_to) {
  const LONG start = from + (to - from - length) / 2;
  return std::max(std::min(start, screen_to - length), screen_from);
}

}  // namespace

void PlaceOverOwner(HWND dialog) {
  const HWND owner = GetWindow(dialog, GW_OWNER);
  const bool is_seen = owner && IsWindowVisible(owner) && !IsIconic(owner);
  const RECT screen = WorkAreaAt(is_seen ? owner : dialog);
  RECT around = screen;
  if (is_seen) GetWindowRect(owner, &around);
  RECT size = {};
  GetWindowRect(dialog, &size);
  const LONG left = Middle(around.left, around.right, size.right - size.left, screen.left, screen.right);
  const LONG top = Middle(around.top, around.bottom, size.bottom - size.top, screen.top, screen.bottom);
  SetWindowPos(dialog, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

DialogLayout::DialogLayout(HWND dialog) : dialog_(dialog), inside_(InsideOf(dialog)) {
  RECT frame = {};
  GetWindowRect(dialog, &frame);
  smallest_ = {frame.right - frame.left, frame.bottom - frame.top};
  RECT lists = {};
  for (HWND each = GetWindow(dialog, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT)) {
    const RECT at = RectOf(dialog, each);
    if (IsList(each)) UnionRect(&lists, &lists, &at);
  }
  for (HWND each = GetWindow(dialog, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT))
    places_.push_back(PlaceOf(each, RectOf(dialog, each), lists));
}

DialogLayout::Place DialogLayout::PlaceOf(HWND window, const RECT& at, const RECT& lists) {
  const bool is_list = IsList(window);
  const bool is_beside = at.left >= lists.right;
  const bool is_below = at.top >= lists.bottom;
  // Of the buttons in the bottom row only one at the left margin stays there.
  const bool is_in_row = is_below && WindowClassOf(window) == u"Button" && at.left > lists.left;
  const bool moves_right = is_beside || is_in_row;
  return {window, at, moves_right, is_below, moves_right || at.right >= lists.right, is_below || is_list};
}

void DialogLayout::Fit() const {
  const SIZE inside = InsideOf(dialog_);
  const LONG wider = std::max(inside.cx - inside_.cx, 0L);
  const LONG higher = std::max(inside.cy - inside_.cy, 0L);
  HDWP moves = BeginDeferWindowPos(static_cast<int>(places_.size()));
  for (const Place& place : places_) {
    const LONG left = place.At.left + (place.LeftMoves ? wider : 0);
    const LONG top = place.At.top + (place.TopMoves ? higher : 0);
    const LONG right = place.At.right + (place.RightMoves ? wider : 0);
    const LONG bottom = place.At.bottom + (place.BottomMoves ? higher : 0);
    moves = DeferWindowPos(moves, place.Window, nullptr, left, top, right - left, bottom - top,
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  }
  EndDeferWindowPos(moves);
}

}  // namespace kestrune
