// DOORS' windows on the screen, in the styles by which an outsider knows them.
#pragma once

#include <windows.h>

#include "workbench/doors/DoorsWindows.h"

namespace kestrune::workbench {

/// Belongs to the thread that made it, which must answer messages. The windows are empty, and no click does
/// anything in them.
class RealDoorsWindows : public DoorsWindows {
 public:
  /// Throws AutomationError when there can be no such windows.
  RealDoorsWindows();
  RealDoorsWindows(const RealDoorsWindows&) = delete;
  RealDoorsWindows& operator=(const RealDoorsWindows&) = delete;
  ~RealDoorsWindows() override { Show(DoorsState::kNotRunning); }

  /// The windows take no focus from others.
  void Show(DoorsState state) override;
  WindowHandle Open() override;
  void Close(WindowHandle window) override;

 private:
  HWND main_ = nullptr;
};

}  // namespace kestrune::workbench
