#include "tests/windows/dialogs/SystemObjects.h"

#include <cstdint>
#include <windows.h>
#include <winternl.h>

namespace kestrune::testing {

namespace {

/// An entry of the table that the system keeps of all drawing objects.
struct DrawingEntry {
  std::uint64_t object;
  std::uint16_t process, count;
  std::uint16_t unique;
  std::uint8_t type;  // 0: the entry is free
  std::uint8_t flags;
  std::uint64_t user;
};
constexpr int kEntries = 0x10000;
constexpr std::uint8_t kFont = 10;
constexpr std::size_t kPlaceInProcess = sizeof(void*) == 8 ? 0xF8 : 0x94;

const DrawingEntry* DrawingTable() {
  const auto* process = reinterpret_cast<const char*>(NtCurrentTeb()->ProcessEnvironmentBlock);
  return *reinterpret_cast<const DrawingEntry* const*>(process + kPlaceInProcess);
}

BOOL CALLBACK CountWindow(HWND, LPARAM counter) {
  ++*reinterpret_cast<int*>(counter);
  return TRUE;
}

}  // namespace

SystemObjects CountSystemObjects() {
  SystemObjects objects;
  EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&objects.windows));
  for (int i = 0; i < kEntries; ++i) {
    objects.drawing += DrawingTable()[i].type != 0;
    objects.fonts += DrawingTable()[i].type == kFont;
  }
  return objects;
}

}  // namespace kestrune::testing
