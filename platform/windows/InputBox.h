// A dialog that asks for one line of text.
#pragma once

#include <optional>

#include "platform/Controls.h"

namespace kestrune {

class frmInput : public Form {
 public:
  frmInput(const Text& title, const Text& prompt);

  TextView ClassName() const override { return u"frmInput"; }

  /// What the user has entered; nothing unless OK was pressed.
  std::optional<Text> Entry;

  Label lblPrompt{this, u"lblPrompt"};
  TextBox txtEntry{this, u"txtEntry"};
  Button cmdOK{this, u"cmdOK"};
  Button cmdCancel{this, u"cmdCancel"};
};

}  // namespace kestrune
