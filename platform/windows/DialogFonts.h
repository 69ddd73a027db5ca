// The fonts that a dialog makes for controls which have a font of their own.
#pragma once

#include <memory>
#include <vector>
#include <windows.h>

#include "platform/Forms.h"

namespace kestrune {

class DialogFonts {
 public:
  /// Gives the window the control's font, if it has one, in the size that the window's font has.
  void Apply(const Control& control, HWND window);

 private:
  struct Deleter {
    void operator()(HFONT font) const { DeleteObject(font); }
  };
  std::vector<std::unique_ptr<std::remove_pointer_t<HFONT>, Deleter>> fonts_;
};

}  // namespace kestrune
