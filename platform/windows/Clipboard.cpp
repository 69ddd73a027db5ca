#include "platform/windows/Clipboard.h"

#include "platform/com/ComText.h"
#include "platform/com/Failure.h"
#include "platform/com/Owned.h"

namespace kestrune {

namespace {

constexpr int kTries = 20;
constexpr DWORD kPause = 25;  // milliseconds

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

/// Movable memory, in its place while this lives.
class LockedMemory {
 public:
  explicit LockedMemory(HGLOBAL memory) : memory_(memory), place_(memory ? GlobalLock(memory) : nullptr) {}
  ~LockedMemory() {
    if (place_) GlobalUnlock(memory_);
  }
  LockedMemory(const LockedMemory&) = delete;
  LockedMemory& operator=(const LockedMemory&) = delete;
  /// Null where there is no memory.
  void* Place() const { return place_; }

 private:
  HGLOBAL memory_;
  void* place_;
};

}  // namespace

Text ReadClipboard(HWND owner) {
  const OpenedClipboard opened(owner);
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  const LockedMemory locked(memory);
  const auto* text = static_cast<const wchar_t*>(locked.Place());
  return text ? Text(FromWide({text, wcsnlen(text, GlobalSize(memory) / sizeof *text)})) : Text();
}

void WriteClipboard(HWND owner, const Text& text) {
  const OpenedClipboard opened(owner);
  OwnedMemory memory(GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof text[0]));
  if (!memory) ThrowLastError();
  {
    const LockedMemory locked(memory.get());
    auto* copy = static_cast<char16_t*>(locked.Place());
    copy[text.copy(copy, text.size())] = 0;
  }
  EmptyClipboard();
  if (!SetClipboardData(CF_UNICODETEXT, memory.get())) ThrowLastError();
  memory.release();  // the system has it
}

}  // namespace kestrune
