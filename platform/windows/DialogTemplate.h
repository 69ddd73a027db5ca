// The templates of the dialogs, in the system's message font: sizes are counted in letters of that font, so a
// dialog is as large as the user has chosen letters to be.
#pragma once

#include <vector>
#include <windows.h>

#include "platform/Text.h"

namespace kestrune {

class DialogTemplate {
 public:
  /// Takes the extended template (DIALOGEX) of that name from the module's resources.
  explicit DialogTemplate(const Text& name);

  /// Null where there is no such template.
  const DLGTEMPLATE* Get() const;

 private:
  std::vector<WORD> words_;
};

}  // namespace kestrune
