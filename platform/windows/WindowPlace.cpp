#include "platform/windows/WindowPlace.h"

#include <algorithm>

namespace kestrune {

namespace {

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

}  // namespace kestrune
