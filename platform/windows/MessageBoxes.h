// The system's message boxes.
#pragma once

#include <windows.h>

#include "platform/Desktop.h"

namespace kestrune {

/// A Help button asks the owner by WM_HELP with the message's topic.
Answer ShowMessageBox(const Message& message, HWND owner);

}  // namespace kestrune
