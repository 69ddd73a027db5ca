// What a user of the setup does besides starting it:
//   setup-user press PROGRAM [ARGUMENT]  starts PROGRAM and presses the button OK (Next, Install, Close) of
//                                        its windows until it ends; its exit status is this one's
//   setup-user registry                  prints what the registry says of the add-in, to the user and to the
//                                        machine, as 64-bit and 32-bit programs see it
//   setup-user hold FILE SIGN            has FILE loaded, or open where it is no program, and makes SIGN to say
//                                        so, until SIGN is removed
#include <cstdio>
#include <string>
#include <windows.h>

#include "tests/windows/com/RegistryTree.h"

namespace {

constexpr DWORD kPause = 50;         // ms
constexpr DWORD kLimit = 60 * 1000;  // ms

/// Presses where it is enabled: a page that works disables its button. A window's process may be a copy of
/// the program's.
BOOL CALLBACK PressOk(HWND window, LPARAM) {
  wchar_t name[16] = L"";
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  const HWND button = GetDlgItem(window, IDOK);
  if (std::wstring(name) == L"#32770" && button && IsWindowVisible(window) && IsWindowEnabled(button))
    PostMessageW(window, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(button));
  return TRUE;
}

int Press(const std::wstring& program, const std::wstring& argument) {
  std::wstring command = L"\"" + program + L"\" " + argument;
  STARTUPINFOW startup = {.cb = sizeof startup};
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &process))
    return 9;
  for (DWORD waited = 0; WaitForSingleObject(process.hProcess, kPause) == WAIT_TIMEOUT; waited += kPause) {
    if (waited > kLimit) return 8;
    EnumWindows(PressOk, 0);
  }
  DWORD status = 7;
  GetExitCodeProcess(process.hProcess, &status);
  return static_cast<int>(status);
}

int Hold(const wchar_t* file, const wchar_t* sign) {
  if (!LoadLibraryW(file) && CreateFileW(file, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                                         nullptr) == INVALID_HANDLE_VALUE)
    return 9;
  const HANDLE made = CreateFileW(sign, GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
  if (made == INVALID_HANDLE_VALUE) return 8;
  CloseHandle(made);
  for (DWORD waited = 0; GetFileAttributesW(sign) != INVALID_FILE_ATTRIBUTES && waited < kLimit;
       waited += kPause)
    Sleep(kPause);
  return 0;
}

int PrintRegistry() {
  const std::pair<const char*, HKEY> roots[] = {{"HKLM", HKEY_LOCAL_MACHINE}, {"HKCU", HKEY_CURRENT_USER}};
  const std::pair<const char*, REGSAM> views[] = {{"64", KEY_WOW64_64KEY}, {"32", KEY_WOW64_32KEY}};
  const std::pair<const char*, const wchar_t*> keys[] = {
      {"ProgID", L"Software\\Classes\\Kestrune.OrimDoors"},
      {"Class", L"Software\\Classes\\CLSID\\{BA85A3AB-7716-4C90-B8D4-994A5DB694E3}"},
      {"Library", L"Software\\Classes\\TypeLib\\{86DA3E7B-2DD0-4BE2-BBAC-B1A73B6A04CA}"},
      {"Interface", L"Software\\Classes\\Interface\\{A6CA57E3-F049-488E-8BBC-7CD2EF92E212}"},
      {"Entry", L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\KestruneLink"}};
  for (const auto& [root_name, root] : roots)
    for (const auto& [view_name, view] : views)
      for (const auto& [key_name, key] : keys)
        for (const std::string& line : kestrune::testing::TreeAt(root, key, view))
          if (line != "no such key")
            std::printf("%s %s %s%s\n", root_name, view_name, key_name, line.c_str());
  return 0;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  const std::wstring what = argc > 1 ? argv[1] : L"";
  if (what == L"registry") return PrintRegistry();
  if (what == L"press" && argc > 2) return Press(argv[2], argc > 3 ? argv[3] : L"");
  if (what == L"hold" && argc == 4) return Hold(argv[2], argv[3]);
  std::fputs("setup-user registry | press PROGRAM [ARGUMENT] | hold FILE SIGN\n", stderr);
  return 2;
}
