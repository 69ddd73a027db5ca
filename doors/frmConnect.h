// The dialog in which the user picks the formal module that a package is to be linked to.
#pragma once

#include "doors/Doors.h"
#include "platform/Controls.h"

namespace kestrune {

class frmConnect : public Form {
 public:
  explicit frmConnect(Doors& doors);

  TextView ClassName() const override { return u"frmConnect"; }

  /// The chosen module's path, or "" when DOORS could not be reached or the user cancelled.
  Text ShowIt();

  Text SelectedModule;

  Label lblCaption{this, u"lblCaption"};
  ListBox lstModules{this, u"lstModules"};
  Label lblTips{this, u"lblTips"};
  Button cmdOK{this, u"cmdOK"};
  Button cmdCancel{this, u"cmdCancel"};
  Button cmdHelp{this, u"cmdHelp"};
  Button cmdManual{this, u"cmdManual"};
  Timer Timer1{this, u"Timer1"};

 private:
  void Form_Load() override;
  void Form_CloseBox() override { cmdCancel_Click(); }
  void Timer1_Tick();
  bool IsConnected();
  void ShowModules(const Text& answer);
  int IndexOf(const Text& module) const;  // -1: not in the list
  void cmdOK_Click();
  void cmdCancel_Click();
  void cmdManual_Click();

  Doors& doors_;
  bool has_listed_ = false;  // a module, ever
  bool is_lost_ = false;     // the last refresh failed, which the user was told
};

}  // namespace kestrune
