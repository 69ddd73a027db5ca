// DOORS' windows on a desktop without a screen.
#pragma once

#include "standins/desktop/HeadlessDesktop.h"
#include "standins/doors-database/DoorsWindows.h"

namespace kestrune::standins {

class SimulatedDoorsWindows : public DoorsWindows {
 public:
  explicit SimulatedDoorsWindows(HeadlessDesktop& desktop) : desktop_(desktop) {}

  void Show(DoorsPhase state) override;
  WindowHandle Open() override;
  void Close(WindowHandle window) override;

 private:
  HeadlessDesktop& desktop_;
  WindowHandle main_ = 0;  // 0: none yet
};

}  // namespace kestrune::standins
