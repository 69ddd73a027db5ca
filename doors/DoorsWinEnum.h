// What DOORS' top-level window tells of the state that DOORS is in, seen from outside
// and without talking to it.
#pragma once

#include "platform/Desktop.h"

namespace kestrune {

enum class DoorsState : std::int32_t {
  kNotRunning = 0,
  kStarting = 1,
  kLogin = 2,
  kPassword = 3,
  kReady = 4
};

struct DoorsWindow {
  bool DoorsFound = false;       // any window of DOORS' class was seen
  std::uint32_t DoorsStyle = 0;  // masked style of the last visible one; 0 when none is visible
  WindowHandle DoorsHwnd = 0;    // that window
};

/// Looks at every top-level window; the last visible one of DOORS decides.
DoorsWindow FindDoorsWindow(Desktop& desktop);

DoorsState StateOf(const DoorsWindow& window);

}  // namespace kestrune
