// The windows of the simulated DOORS, by which an outsider tells how far it has come.
#pragma once

#include <algorithm>

#include "platform/Desktop.h"

namespace kestrune::workbench {

enum class DoorsState { kNotRunning, kStartUp, kLogin, kPasswordCheck, kReady };
/// As commands call them, in that order.
inline constexpr TextView kDoorsStateNames[] = {u"gone", u"starting", u"login", u"password", u"ready"};
inline DoorsState DoorsStateNamed(TextView name) {
  return static_cast<DoorsState>(std::ranges::find(kDoorsStateNames, name) - std::begin(kDoorsStateNames));
}

class DoorsWindows {
 public:
  virtual ~DoorsWindows() = default;
  /// Shows the main window as it looks in that state.
  virtual void Show(DoorsState state) = 0;
  /// A new window for a module, in front of all others.
  virtual WindowHandle Open() = 0;
  virtual void Close(WindowHandle window) = 0;
};

}  // namespace kestrune::workbench
