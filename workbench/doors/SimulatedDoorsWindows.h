// DOORS' windows on a desktop without a screen.
#pragma once

#include "platform/headless/HeadlessDesktop.h"
#include "workbench/doors/DoorsWindows.h"

namespace kestrune::workbench {

class SimulatedDoorsWindows : public DoorsWindows {
 public:
  explicit SimulatedDoorsWindows(HeadlessDesktop& desktop) : desktop_(desktop) {}

  void Show(DoorsState state) override;
  WindowHandle Open() override;
  void Close(WindowHandle window) override;

 private:
  HeadlessDesktop& desktop_;
  WindowHandle main_ = 0;  // 0: none yet
};

}  // namespace kestrune::workbench
