// A DOORS that is ready, in this process: a main window, and the class "Doors.Application", whose objects
// answer each script with one module.
#pragma once

#include "tests/windows/dialogs/DoorsWindow.h"

namespace kestrune::testing {

class DoorsInProcess {
 public:
  DoorsInProcess();
  DoorsInProcess(const DoorsInProcess&) = delete;
  DoorsInProcess& operator=(const DoorsInProcess&) = delete;
  ~DoorsInProcess();

 private:
  DoorsWindow main_window_{DoorsWindow::kMain, true};
  DWORD registration_ = 0;
};

}  // namespace kestrune::testing
