// Text on the system's clipboard.
#pragma once

#include <windows.h>

#include "platform/Text.h"

namespace kestrune {

/// The text on the clipboard, "" when there is none. Both throw AutomationError when another program does not
/// let go of the clipboard.
Text ReadClipboard(HWND owner);
void WriteClipboard(HWND owner, const Text& text);

}  // namespace kestrune
