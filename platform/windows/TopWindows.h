// The top-level windows of all programs.
#pragma once

#include <functional>
#include <windows.h>

#include "platform/Desktop.h"

namespace kestrune {

/// In the system's order, until `visit` returns false. What it throws is thrown on.
void VisitTopWindows(const std::function<bool(HWND)>& visit);

/// Of a window's handle only 32 bits count, on 64-bit systems too.
WindowHandle HandleOf(HWND window);
HWND WindowOf(WindowHandle handle);

}  // namespace kestrune
