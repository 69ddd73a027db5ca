// DOORS as a program: the stand-in over a database, its windows, its automation object for other programs,
// and the window by which those steer it.
#pragma once

#include "platform/com/ComObjectFactory.h"
#include "standins/doors-database/DoorsStandIn.h"
#include "standins/windows/doors/ControlWindow.h"
#include "standins/windows/doors/DoorsServer.h"

namespace kestrune::standins {

/// Belongs to the thread that made it, in a single-threaded apartment.
class DoorsProgram {
 public:
  /// What scripts print and what is wrong with them is appended to the file `log`, unless that
  /// is "". Throws AutomationError.
  DoorsProgram(const Text& database, Text log, DoorsPhase state);
  DoorsProgram(const DoorsProgram&) = delete;
  DoorsProgram& operator=(const DoorsProgram&) = delete;

  /// Serves until it is told to end.
  void Run();

 private:
  class Application;

  LRESULT OnControl(UINT message, WPARAM parameter);
  void SetPhase(DoorsPhase state);
  [[noreturn]] void Die();
  void AfterRun();
  void WriteLog();
  void DamageExport();

  ComObjectFactory objects_;
  DoorsDatabase database_;
  DoorsStandIn doors_;
  Text log_;
  std::size_t logged_ = 0;
  bool damages_export_ = false;
  DoorsServer server_;
  ControlWindow control_;
};

}  // namespace kestrune::standins
