#include "platform/windows/DialogFonts.h"

#include "platform/com/ComText.h"

namespace kestrune {

void DialogFonts::Apply(const Control& control, HWND window) {
  if (control.FontName.empty()) return;
  LOGFONTW font = {};
  GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
  font.lfFaceName[control.FontName.copy(reinterpret_cast<char16_t*>(font.lfFaceName), LF_FACESIZE - 1)] = 0;
  font.lfCharSet = static_cast<BYTE>(control.FontCharset);
  fonts_.emplace_back(CreateFontIndirectW(&font));
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.back().get()), TRUE);
}

}  // namespace kestrune
