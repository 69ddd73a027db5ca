// The about box: the product's name and version.
#pragma once

#include "platform/Controls.h"

namespace kestrune {

class frmAbout : public Form {
 public:
  frmAbout();

  TextView ClassName() const override { return u"frmAbout"; }

  Label lblProduct{this, u"lblProduct"};
  Label lblVersion{this, u"lblVersion"};
  Button cmdOK{this, u"cmdOK"};

 private:
  void Form_Load() override;
};

}  // namespace kestrune
