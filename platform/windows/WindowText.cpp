#include "platform/windows/WindowText.h"

namespace kestrune {

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

WindowContext::WindowContext(HWND window) : window_(window), context_(GetDC(window)), previous_(nullptr) {
  const LRESULT font = window ? SendMessageW(window, WM_GETFONT, 0, 0) : 0;
  if (font) previous_ = SelectObject(context_, reinterpret_cast<HGDIOBJ>(font));
}

WindowContext::~WindowContext() {
  if (previous_) SelectObject(context_, previous_);
  ReleaseDC(window_, context_);
}

int TextWidth(HWND window, const Text& text) {
  const WindowContext context(window);
  SIZE size = {};
  GetTextExtentPoint32W(context.Get(), Wide(text), static_cast<int>(text.size()), &size);
  return size.cx;
}

}  // namespace kestrune
