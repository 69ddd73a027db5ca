#include "platform/windows/Clipboard.h"

#include "platform/Automation.h"
#include "platform/com/ComText.h"

namespace kestrune {

namespace {

constexpr int kTries = 20;
constexpr DWORD kPause = 25;  // milliseconds

[[noreturn]] void ThrowLastError() {
  const HRESULT result = HRESULT_FROM_WIN32(GetLastError());
  throw AutomationError(static_cast<std::uint32_t>(result), u"Clipboard", SystemMessage(result));
}

/// The clipboard, open while this lives. Other programs hold it for moments.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int tries = 1; !OpenClipboard(owner); ++tries) {
      if (tries == kTries) ThrowLastError();
      Sleep(kPause);
    }
  }
  ~OpenedClipboard() { CloseClipboard(); }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
};

}  // namespace

Text ReadClipboard(HWND owner) {
  const OpenedClipboard opened(owner);
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  const auto* text = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
  if (!text) return {};
  Text copy(FromWide({text, wcsnlen(text, GlobalSize(memory) / sizeof *text)}));
  GlobalUnlock(memory);
  return copy;
}

void WriteClipboard(HWND owner, const Text& text) {
  const OpenedClipboard opened(owner);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof text[0]);
  if (!memory) ThrowLastError();
  auto* copy = static_cast<char16_t*>(GlobalLock(memory));
  copy[text.copy(copy, text.size())] = 0;
  GlobalUnlock(memory);
  EmptyClipboard();
  // The system owns the memory from here on.
  if (SetClipboardData(CF_UNICODETEXT, memory)) return;
  GlobalFree(memory);
  ThrowLastError();
}

}  // namespace kestrune
