// Texts of windows and their widths.
#pragma once

#include "platform/com/ComText.h"

namespace kestrune {

Text WindowTextOf(HWND window);

/// The name of the window's class, such as u"Button".
Text WindowClassOf(HWND window);

/// A window's device context with the window's font in it; for no window, that of the screen.
class WindowContext {
 public:
  explicit WindowContext(HWND window);
  ~WindowContext();
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;
  HDC Get() const { return context_; }

 private:
  HWND window_;
  HDC context_;
  HGDIOBJ previous_;  // null: the context has a font already
};

/// The width of `text` in the window's font, in pixels.
int TextWidth(HWND window, const Text& text);

}  // namespace kestrune
