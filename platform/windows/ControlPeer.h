// A window of a dialog and the control of the form that it shows. What a person does to the window becomes
// the control's user action; what the form does to the control is shown in the window.
#pragma once

#include <memory>
// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the one above
// clang-format on

#include "platform/Controls.h"

namespace kestrune {

class ControlPeer {
 public:
  ControlPeer(const Control& control, HWND window) : control_(control), window_(window) {}
  ControlPeer(const ControlPeer&) = delete;
  ControlPeer& operator=(const ControlPeer&) = delete;
  virtual ~ControlPeer() = default;

  HWND Window() const { return window_; }
  /// Brings the window up to the control's state. What the window reports meanwhile is no person's doing:
  /// IsPushing() is true then.
  void Push();
  bool IsPushing() const { return is_pushing_; }

  /// A notification of the window: WM_COMMAND's code, or WM_NOTIFY.
  virtual void OnCommand(WORD) {}
  virtual void OnNotify(const NMHDR&) {}
  /// A key that was pressed in the window; true when that is all that comes of it.
  virtual bool OnListKey(WORD) { return false; }
  virtual void OnContextMenu() {}
  /// The window has got another size or font.
  virtual void OnResized() {}
  /// All that came of a message has been done: what shows only the outcome is brought up to it.
  virtual void Settle() {}

 protected:
  virtual void PushContent() = 0;

 private:
  const Control& control_;
  HWND window_;
  bool is_pushing_ = false;
};

/// The peer for the control's class; nothing for those that have no window: timers and menus.
std::unique_ptr<ControlPeer> MakeControlPeer(Control& control, HWND window);

}  // namespace kestrune
