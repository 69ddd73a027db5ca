// Shows a form's menu.
#pragma once

#include <windows.h>

#include "platform/Controls.h"

namespace kestrune {

/// Opens the menu at the left edge and the bottom of the window `below`; the item that the user chooses, null
/// when the menu is left.
MenuItem* ChooseFromMenu(const Menu& menu, HWND dialog, HWND below);

}  // namespace kestrune
