// The windows of the simulated DOORS, by which an outsider tells how far it has come.
#pragma once

#include "platform/headless/HeadlessDesktop.h"

namespace kestrune::workbench {

enum class DoorsState { kNotRunning, kStartUp, kLogin, kPasswordCheck, kReady };

/// Does nothing without a desktop.
class DoorsWindows {
 public:
  explicit DoorsWindows(HeadlessDesktop* desktop) : desktop_(desktop) {}

  /// Shows the main window as it looks in that state.
  void Show(DoorsState state);
  /// A new window in front of all others; 0 without a desktop.
  WindowHandle Open();
  void Close(WindowHandle window);

 private:
  HeadlessDesktop* desktop_;
  WindowHandle main_ = 0;  // 0: none yet
};

}  // namespace kestrune::workbench
