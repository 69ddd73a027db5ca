// Offers an automation object to other programs as "Doors.Application".
#pragma once

#include "platform/Automation.h"
#include "standins/windows/doors/DoorsClass.h"

namespace kestrune::standins {

/// For as long as it lives; every client gets the same object, served by the thread that made it. Throws
/// AutomationError when the class cannot be offered.
class DoorsServer {
 public:
  explicit DoorsServer(const Object& application);
  DoorsServer(const DoorsServer&) = delete;
  DoorsServer& operator=(const DoorsServer&) = delete;
  ~DoorsServer() { Revoke(); }

  /// From now on no new client gets the object. A process that is to be ended from within a call must do it
  /// first: Wine goes on looking for the class in the dead process else.
  void Revoke();

 private:
  DWORD cookie_ = 0;
};

}  // namespace kestrune::standins
