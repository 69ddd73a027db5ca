// The small dialog that tells what DOORS is waiting for, until DOORS can take scripts or the user gives up.
#pragma once

#include "doors/DoorsWinEnum.h"
#include "platform/Controls.h"
#include "platform/Platform.h"

namespace kestrune {

class frmConnectProgress : public Form {
 public:
  explicit frmConnectProgress(const Platform& platform);

  TextView ClassName() const override { return u"frmConnectProgress"; }

  /// DOORS' automation object, at once when DOORS is ready, else after the dialog; nothing
  /// when the user cancels it.
  Object GetDoors();

  /// The state that DOORS is in; `window` becomes the window that told it, 0 when DOORS has none.
  DoorsState CurrentDoorsState(WindowHandle& window);

  Label lblStatus{this, u"lblStatus"};
  Button cmdCancel{this, u"cmdCancel"};
  Timer Timer1{this, u"Timer1"};

 private:
  void Form_Load() override;
  void Timer1_Tick();

  const Platform& platform_;
  Object doors_;
};

}  // namespace kestrune
