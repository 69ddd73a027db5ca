// Texts of windows and their widths.
#pragma once

#include "platform/com/ComText.h"

namespace kestrune {

Text WindowTextOf(HWND window);

/// The name of the window's class, such as u"Button".
Text WindowClassOf(HWND window);

/// The width of `text` in the window's font, in pixels.
int TextWidth(HWND window, const Text& text);

}  // namespace kestrune
