// The look of dialogs and message boxes, whatever the host has asked for: the system's visual styles and, at
// any scale of the screen, letters as sharp as the system's.
#pragma once

#include <windows.h>

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

}  // namespace kestrune
