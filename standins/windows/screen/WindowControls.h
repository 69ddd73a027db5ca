// A control's window as its user has it. All on the window's own thread.
#pragma once

#include <windows.h>

#include "standins/play/Dialog.h"

namespace kestrune::standins {

enum class Kind { kButton, kTextBox, kListBox, kComboBox, kTable, kOther };

Kind KindOf(HWND control);
play::ControlState StateOf(HWND control);

void Press(HWND button);
/// Replaces the text of a text box or combo box.
void Enter(HWND box, const Text& text);
/// Opens the list of a combo box.
void Drop(HWND box);
/// Selects these lines and no other: one of a list box or combo box, any of a table.
void SelectLines(HWND control, const std::vector<std::size_t>& lines);
/// Of a list box or table.
void DoubleClickLine(HWND control, std::size_t line);

/// Line number `line` of a list box.
Text LineOf(HWND list_box, std::size_t line);

}  // namespace kestrune::standins
