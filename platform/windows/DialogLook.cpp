#include "platform/windows/DialogLook.h"

#include "platform/com/ComText.h"
#include "platform/windows/Module.h"

namespace kestrune {

namespace {

constexpr int kManifest = 2;  // the id that the system gives a library's own manifest

// Windows 10 has it, older systems scale by process alone.
HANDLE SetScale(HANDLE context) {
  using Function = HANDLE(WINAPI*)(HANDLE);
  const FARPROC address = GetProcAddress(GetModuleHandleW(L"user32"), "SetThreadDpiAwarenessContext");
  return address ? reinterpret_cast<Function>(reinterpret_cast<void*>(address))(context) : nullptr;
}

const HANDLE kScaledBySystemSetting = reinterpret_cast<HANDLE>(-2);  // DPI_AWARENESS_CONTEXT_SYSTEM_AWARE

}  // namespace

DialogLook::DialogLook() {
  ACTCTXW description = {.cbSize = sizeof description};
  description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  description.hModule = ThisModule();
  description.lpResourceName = MAKEINTRESOURCEW(kManifest);
  styles_ = CreateActCtxW(&description);
  if (styles_ != INVALID_HANDLE_VALUE) ActivateActCtx(styles_, &activation_);
  previous_scale_ = SetScale(kScaledBySystemSetting);
}

DialogLook::~DialogLook() {
  if (previous_scale_) SetScale(previous_scale_);
  if (styles_ == INVALID_HANDLE_VALUE) return;
  DeactivateActCtx(0, activation_);
  ReleaseActCtx(styles_);
}

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
