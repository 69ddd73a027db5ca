// The windows of the simulated DOORS, by which an outsider tells how far it has come.
#pragma once

#include <algorithm>

#include "platform/Desktop.h"

namespace kestrune::standins {

enum class DoorsPhase { kNotRunning, kStartUp, kLogin, kPasswordCheck, kReady };
/// As commands call them, in that order.
inline constexpr TextView kDoorsPhaseNames[] = {u"gone", u"starting", u"login", u"password", u"ready"};
inline DoorsPhase DoorsPhaseNamed(TextView name) {
  return static_cast<DoorsPhase>(std::ranges::find(kDoorsPhaseNames, name) - std::begin(kDoorsPhaseNames));
}

class DoorsWindows {
 public:
  virtual ~DoorsWindows() = default;
  /// Shows the main window as it looks in that state.
  virtual void Show(DoorsPhase state) = 0;
  /// A new window for a module, in front of all others.
  virtual WindowHandle Open() = 0;
  virtual void Close(WindowHandle window) = 0;
};

}  // namespace kestrune::standins
