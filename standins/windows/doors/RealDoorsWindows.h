// DOORS' windows on the screen, in the styles by which an outsider knows them.
#pragma once

#include <windows.h>

#include "standins/doors-database/DoorsWindows.h"

namespace kestrune::standins {

/// Belongs to the thread that made it, which must answer messages. The windows are empty, and no click does
/// anything in them.
class RealDoorsWindows : public DoorsWindows {
 public:
  /// Throws AutomationError when there can be no such windows.
  RealDoorsWindows();
  RealDoorsWindows(const RealDoorsWindows&) = delete;
  RealDoorsWindows& operator=(const RealDoorsWindows&) = delete;
  ~RealDoorsWindows() override { Show(DoorsPhase::kNotRunning); }

  /// The windows take no focus from others.
  void Show(DoorsPhase state) override;
  WindowHandle Open() override;
  void Close(WindowHandle window) override;

 private:
  HWND main_ = nullptr;
};

}  // namespace kestrune::standins
