#include "tests/windows/dialogs/SystemObjects.h"

#include <cstdint>
#include <windows.h>
#include <winternl.h>

namespace kestrune::testing {

namespace {

/// An entry of the table that the system keeps of all drawing objects.
struct DrawingEntry {
  std::uint64_t Object;
  std::uint16_t Process, Count;
  std::uint16_t Unique;
  std::uint8_t Type;  // 0: the entry is free
  std::uint8_t Flags;
  std::uint64_t User;
};
constexpr int kEntries = 0x10000;
constexpr std::size_t kPlaceInProcess = sizeof(void*) == 8 ? 0xF8 : 0x94;

// Wine does not count by GetGuiResources; its table is the process's own.
int CountDrawing() {
  if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
    return static_cast<int>(counted);
  const auto* process = reinterpret_cast<const char*>(NtCurrentTeb()->ProcessEnvironmentBlock);
  const auto* entries = *reinterpret_cast<const DrawingEntry* const*>(process + kPlaceInProcess);
  int count = 0;
  for (int i = 0; i < kEntries; ++i) count += entries[i].Type != 0;
  return count;
}

}  // namespace

SystemObjects CountSystemObjects() {
  SystemObjects objects;
  const auto count = [](HWND, LPARAM parameter) -> BOOL {
    ++*reinterpret_cast<int*>(parameter);
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), count, reinterpret_cast<LPARAM>(&objects.Windows));
  objects.Drawing = CountDrawing();
  return objects;
}

}  // namespace kestrune::testing
