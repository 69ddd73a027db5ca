// The look of dialogs and message boxes, whatever the host has asked for: the system's visual styles and, at
// any scale of the screen, letters as sharp as the system's.
#pragma once

#include <vector>

#include "platform/Forms.h"
#include "platform/com/Owned.h"

namespace kestrune {

/// In force while it lives, for the windows that its thread makes.
class DialogLook {
 public:
  DialogLook();
  ~DialogLook();
  DialogLook(const DialogLook&) = delete;
  DialogLook& operator=(const DialogLook&) = delete;

 private:
  HANDLE styles_;
  ULONG_PTR activation_ = 0;
  HANDLE previous_scale_ = nullptr;
};

/// The fonts that a dialog makes for controls which have a font of their own.
class DialogFonts {
 public:
  /// Gives the window the control's font, if it has one, in the size that the window's font has.
  void Apply(const Control& control, HWND window);

 private:
  std::vector<OwnedFont> fonts_;
};

}  // namespace kestrune
