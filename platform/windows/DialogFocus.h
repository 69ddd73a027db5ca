// The keyboard's way through a dialog: something that can be used has the focus at any time.
#pragma once

#include <windows.h>

namespace kestrune {

class DialogFocus {
 public:
  void SetDialog(HWND dialog) { dialog_ = dialog; }

  /// Gives the focus to a control; while the dialog opens, when it has opened.
  void GiveTo(HWND control);
  /// The dialog has opened: what asked for the focus last gets it, else the first control.
  void Begin();
  /// After a message, before which `before` had the focus. A window that is hidden or disabled loses it to
  /// nobody, and the keyboard with it.
  void Keep(HWND before) const;

 private:
  bool IsReachable(HWND window) const;

  HWND dialog_ = nullptr;
  HWND wanted_ = nullptr;
  bool is_opening_ = true;
};

}  // namespace kestrune
