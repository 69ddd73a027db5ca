// Where a dialog stands when it opens.
#pragma once

#include <windows.h>

namespace kestrune {

/// In the middle of its owner, or of the screen when it has none that can be seen; never beyond the screen.
void PlaceOverOwner(HWND dialog);

}  // namespace kestrune
