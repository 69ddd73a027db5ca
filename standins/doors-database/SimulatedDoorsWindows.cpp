#include "standins/doors-database/SimulatedDoorsWindows.h"

namespace kestrune::standins {

namespace {

constexpr const char16_t* kWindowClass = u"DOORSWindow";
constexpr std::uint32_t kVisible = 0x10000000;
constexpr std::uint32_t kClipSiblings = 0x04000000;
constexpr std::uint32_t kDialog = kClipSiblings | 0x00C80000;  // caption, system menu
constexpr std::uint32_t kMainWindow =
    kClipSiblings | 0x00CF0000;  // and sizing frame, minimise and maximise boxes

SimulatedWindow WindowIn(DoorsPhase state) {
  switch (state) {
    case DoorsPhase::kStartUp:
      return {kWindowClass, kClipSiblings | kVisible};
    case DoorsPhase::kLogin:
      return {kWindowClass, kDialog | kVisible};
    case DoorsPhase::kPasswordCheck:
      return {kWindowClass, kDialog, false};
    case DoorsPhase::kReady:
      return {kWindowClass, kMainWindow | kVisible};
    case DoorsPhase::kNotRunning:
      break;
  }
  return {u"", 0, false};  // a desktop forgets no window, so one that is gone has no class
}

}  // namespace

void SimulatedDoorsWindows::Show(DoorsPhase state) {
  if (!main_ && state == DoorsPhase::kNotRunning) return;
  if (!main_) main_ = desktop_.AddWindow({});
  desktop_.WindowAt(main_) = WindowIn(state);
}

WindowHandle SimulatedDoorsWindows::Open() {
  const WindowHandle window = desktop_.AddWindow(WindowIn(DoorsPhase::kReady));
  desktop_.BringToFront(window);
  return window;
}

void SimulatedDoorsWindows::Close(WindowHandle window) {
  desktop_.WindowAt(window) = WindowIn(DoorsPhase::kNotRunning);
}

}  // namespace kestrune::standins
