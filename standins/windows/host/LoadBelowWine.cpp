#include "standins/windows/host/LoadBelowWine.h"

#include <memory>
#include <windows.h>

#include "platform/Files.h"
#include "platform/com/ComText.h"
#include "platform/windows/Win32Folders.h"
#include "standins/stage/CommandError.h"
#include "standins/windows/host/ChildProcess.h"

namespace kestrune::standins {

namespace {

constexpr DWORD kPatienceMs = 60000;
constexpr DWORD kPauseMs = 20;
Text UnixPath(const Text& path) {
  using Converter = char*(CDECL*)(const wchar_t*);
  const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
  const auto convert =
      reinterpret_cast<Converter>(reinterpret_cast<void*>(GetProcAddress(kernel, "wine_get_unix_file_name")));
  if (!convert) throw CommandError(u"Exchange files can be loaded under Wine only.");
  const auto full = std::filesystem::absolute(ToPath(path)).lexically_normal();
  const std::unique_ptr<char, void (*)(char*)> converted(
      convert(full.c_str()), [](char* text) { HeapFree(GetProcessHeap(), 0, text); });
  if (!converted) throw CommandError(path + u": there is no such file.");
  return FromUtf8(converted.get());
}

/// A program of the system below leaves no handle to wait for, so it is waited for what it writes.
void AwaitFile(const Text& path) {
  const ULONGLONG end = GetTickCount64() + kPatienceMs;
  while (!IsFile(path)) {
    if (GetTickCount64() > end) throw CommandError(u"kestrune-workbench does not end.");
    Sleep(kPauseMs);
  }
}

}  // namespace

void LoadBelowWine(const Text& workbench, const Text& file, const Text& folder, const Text& database) {
  const Text report = Win32Folders().Temp() + u"kestrune-load-" + kestrune::ToText(GetCurrentProcessId());
  StartProgram({UnixPath(workbench), u"doors", u"load", UnixPath(file), u"--doors", UnixPath(database),
                u"--at", folder, u"--report", UnixPath(report)});
  AwaitFile(report);
  const Text failure(Trim(FromUtf8(ReadFile(report))));
  RemoveFile(report);
  if (!failure.empty()) throw CommandError(failure);
}

}  // namespace kestrune::standins
