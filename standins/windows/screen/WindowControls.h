// A control's window as its user has it. All on the window's own thread.
#pragma once

#include <windows.h>

#include "standins/play/Dialog.h"

namespace kestrune::standins {

enum class Kind { kButton, kTextBox, kListBox, kComboBox, kTable, kOther };

Kind KindOf(HWND control);
play::ControlState StateOf(HWND control);

/// Line number `line` of a list box.
Text LineOf(HWND list_box, std::size_t line);

}  // namespace kestrune::standins
