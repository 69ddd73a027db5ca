#include "workbench/doors/SimulatedDoorsWindows.h"

namespace kestrune::workbench {

namespace {

constexpr const char16_t* kWindowClass = u"DOORSWindow";
constexpr std::uint32_t kVisible = 0x10000000;
constexpr std::uint32_t kClipSiblings = 0x04000000;
constexpr std::uint32_t kDialog = kClipSiblings | 0x00C80000;  // caption, system menu
constexpr std::uint32_t kMainWindow =
    kClipSiblings | 0x00CF0000;  // and sizing frame, minimise and maximise boxes

SimulatedWindow WindowIn(DoorsState state) {
  switch (state) {
    case DoorsState::kStartUp:
      return {kWindowClass, kClipSiblings | kVisible};
    case DoorsState::kLogin:
      return {kWindowClass, kDialog | kVisible};
    case DoorsState::kPasswordCheck:
      return {kWindowClass, kDialog, false};
    case DoorsState::kReady:
      return {kWindowClass, kMainWindow | kVisible};
    case DoorsState::kNotRunning:
      break;
  }
  return {u"", 0, false};  // a desktop forgets no window, so one that is gone has no class
}

}  // namespace

void SimulatedDoorsWindows::Show(DoorsState state) {
  if (!main_ && state == DoorsState::kNotRunning) return;
  if (!main_) main_ = desktop_.AddWindow({});
  desktop_.WindowAt(main_) = WindowIn(state);
}

WindowHandle SimulatedDoorsWindows::Open() {
  const WindowHandle window = desktop_.AddWindow(WindowIn(DoorsState::kReady));
  desktop_.BringToFront(window);
  return window;
}

void SimulatedDoorsWindows::Close(WindowHandle window) {
  desktop_.WindowAt(window) = WindowIn(DoorsState::kNotRunning);
}

}  // namespace kestrune::workbench
