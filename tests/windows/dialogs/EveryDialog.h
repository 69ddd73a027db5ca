// Every dialog of the add-in, each shown with content as it is in use.
#pragma once

#include "tests/windows/dialogs/DialogStage.h"

namespace kestrune::testing {

struct ShownDialog {
  const char* name;
  const char16_t* title;
  int help;         // the topic; 0 where there is no Help button
  int first_focus;  // the control that has the focus when the dialog opens
  void (*show)(DialogStage&);
};

/// A dialog whose person does nothing else closes with Esc.
const std::vector<ShownDialog>& EveryDialog();

/// Gives the stage a DOORS with three modules and a package that is linked to the first of them.
void PrepareLink(DialogStage& stage);

}  // namespace kestrune::testing
