#include "platform/windows/WindowText.h"

namespace kestrune {

namespace {

/// A window's device context with the window's font in it.
class WindowContext {
 public:
  explicit WindowContext(HWND window)
      : window_(window), context_(GetDC(window)), previous_(SelectObject(context_, FontOf(window))) {}
  ~WindowContext() {
    SelectObject(context_, previous_);
    ReleaseDC(window_, context_);
  }
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;
  HDC Get() const { return context_; }

 private:
  static HGDIOBJ FontOf(HWND window) {
    return reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0));
  }
  HWND window_;
  HDC context_;
  HGDIOBJ previous_;
};

}  // namespace

Text WindowTextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  return Text(FromWide({text.data(), static_cast<std::size_t>(length)}));
}

Text WindowClassOf(HWND window) {
  char name[256] = {};
  const int length = GetClassNameA(window, name, sizeof name);
  return FromSystemCodePage({name, static_cast<std::size_t>(length)});
}

int TextWidth(HWND window, const Text& text) {
  const WindowContext context(window);
  SIZE size = {};
  GetTextExtentPoint32W(context.Get(), Wide(text), static_cast<int>(text.size()), &size);
  return size.cx;
}

}  // namespace kestrune
