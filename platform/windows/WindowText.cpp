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

int TextWidth(HWND window, const Text& text) {
  const HDC context = GetDC(window);
  const HGDIOBJ previous =
      SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
  SIZE size = {};
  GetTextExtentPoint32W(context, Wide(text), static_cast<int>(text.size()), &size);
  SelectObject(context, previous);
  ReleaseDC(window, context);
  return size.cx;
}

}  // namespace kestrune
