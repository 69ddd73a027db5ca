#include "platform/windows/Modality.h"

#include <utility>

namespace kestrune {

namespace {

struct Search {
  HWND Owner;
  std::vector<HWND> Found;
};

BOOL CALLBACK OnUsable(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  if (window != search.Owner && IsWindowVisible(window) && IsWindowEnabled(window))
    search.Found.push_back(window);
  return TRUE;
}

BOOL CALLBACK OnHostWindow(HWND window, LPARAM parameter) {
  if (!IsWindowVisible(window) || GetWindow(window, GW_OWNER)) return TRUE;
  *reinterpret_cast<HWND*>(parameter) = window;
  return FALSE;
}

}  // namespace

Modality::Modality(HWND owner) : active_(GetActiveWindow()) {
  Search search{owner, {}};
  EnumThreadWindows(GetCurrentThreadId(), OnUsable, reinterpret_cast<LPARAM>(&search));
  disabled_ = std::move(search.Found);
  for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

Modality::~Modality() {
  GiveBack();
  if (IsWindow(active_) && IsWindowEnabled(active_)) SetActiveWindow(active_);
}

void Modality::GiveBack() {
  for (const HWND window : std::exchange(disabled_, {}))
    if (IsWindow(window)) EnableWindow(window, TRUE);
}

HWND HostWindow() {
  if (const HWND active = GetActiveWindow()) return GetAncestor(active, GA_ROOTOWNER);
  HWND shown = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), OnHostWindow, reinterpret_cast<LPARAM>(&shown));
  return shown;
}

}  // namespace kestrune
