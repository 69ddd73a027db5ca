// The about box: the product's name and version.
#pragma once

#include "platform/Controls.h"

namespace kestrune {

class frmAbout : public Form {
 public:
  frmAbout();

  Label lblProduct{this, u"lblProduct"};
  Label lblVersion{this, u"lblVersion"};
  Button cmdOK{this, u"cmdOK"};

 private:
  void Form_Load() override;
};

}  // namespace kestrune
