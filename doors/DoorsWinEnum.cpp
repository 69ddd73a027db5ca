#include "doors/DoorsWinEnum.h"

namespace kestrune {

namespace {

// Clip-siblings, caption, borders, scroll bars, system menu, sizing frame, minimise and maximise boxes.
constexpr std::uint32_t kStyleMask = 0x04FF0000;
constexpr std::uint32_t kStartUpScreen = 0x04000000;
constexpr std::uint32_t kLoginDialog = 0x04C80000;
constexpr std::uint32_t kMainWindow = 0x04CF0000;

}  // namespace

DoorsWindow FindDoorsWindow(Desktop& desktop) {
  DoorsWindow found;
  desktop.EnumTop([&](WindowHandle window) {
    if (desktop.ClassOf(window) != u"DOORSWindow") return true;
    found.DoorsFound = true;
    if (desktop.IsVisible(window)) {
      found.DoorsStyle = desktop.StyleOf(window) & kStyleMask;
      found.DoorsHwnd = window;
    }
    return true;
  });
  return found;
}

DoorsState StateOf(const DoorsWindow& window) {
  if (!window.DoorsFound) return DoorsState::kNotRunning;
  switch (window.DoorsStyle) {
    case 0:
      return DoorsState::kPassword;
    case kStartUpScreen:
      return DoorsState::kStarting;
    case kLoginDialog:
      return DoorsState::kLogin;
    case kMainWindow:
      return DoorsState::kReady;
    default:
      return DoorsState::kNotRunning;
  }
}

}  // namespace kestrune
