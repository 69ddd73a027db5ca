// What a script calls things that bear no name on the screen.
#pragma once

#include <map>
#include <vector>

#include "platform/Text.h"

namespace kestrune::standins {

struct DialogNames {
  std::map<Text, Text> forms;               // by the name of a control that only this form has
  std::map<Text, std::vector<Text>> menus;  // the items of each pop-up menu, from the first on
};

/// The dialogs of Kestrune Link.
const DialogNames& KestruneDialogNames();

}  // namespace kestrune::standins
