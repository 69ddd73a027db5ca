// Keeps the user from everything else of the host while a dialog is open: main windows, floating panes,
// whatever the thread shows.
#pragma once

#include <vector>
#include <windows.h>

namespace kestrune {

class Modality {
 public:
  /// Disables the thread's windows that can be used, but `owner`: that one the dialog itself looks after.
  explicit Modality(HWND owner);
  /// Gives them back, and the window that was active becomes active again.
  ~Modality();
  Modality(const Modality&) = delete;
  Modality& operator=(const Modality&) = delete;

  /// The dialog is about to go: where nothing of the thread could be used then, the system would go on with
  /// another program.
  void GiveBack();

 private:
  HWND active_;
  std::vector<HWND> disabled_;
};

/// The window in whose name dialogs open now: the one that owns the active one, at whatever distance; where
/// another program is active, the first that the thread shows. Null when it shows none.
HWND HostWindow();

}  // namespace kestrune
