// The means by which a user acts on the controls of a dialog: a mouse, or the keyboard alone.
#pragma once

#include <vector>
#include <windows.h>

#include "platform/Text.h"

namespace kestrune::standins {

/// All on the window's own thread; what an action opens has closed when it returns.
struct Means {
  void (*press)(HWND button);
  /// Replaces the text of a text box or combo box.
  void (*enter)(HWND box, const Text& text);
  /// Opens the list of a combo box.
  void (*drop)(HWND box);
  /// Selects these lines and no other: one of a list box or combo box, any of a table.
  void (*select_lines)(HWND control, const std::vector<std::size_t>& lines);
  /// Of a list box or table.
  void (*double_click_line)(HWND control, std::size_t line);
};

extern const Means kMouse;

/// Keys go to whatever has the focus, as the message loop of the dialog gives them to it. Throws
/// play::Refusal where nothing has the focus and where Tab does not reach the control. In place of a double
/// click on a line of a list box Enter presses the default button; a table has no such key.
extern const Means kKeyboard;

}  // namespace kestrune::standins
