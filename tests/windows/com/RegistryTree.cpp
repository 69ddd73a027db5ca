#include "tests/windows/com/RegistryTree.h"

#include <algorithm>

#include "platform/com/ComText.h"

namespace kestrune::testing {

namespace {

constexpr DWORD kLongest = 1024;

void AddValues(HKEY key, const std::string& path, std::vector<std::string>& lines) {
  for (DWORD i = 0;; ++i) {
    wchar_t name[kLongest] = L"";
    wchar_t value[kLongest] = L"";
    DWORD name_length = kLongest;
    DWORD size = sizeof value;
    if (RegEnumValueW(key, i, name, &name_length, nullptr, nullptr, reinterpret_cast<BYTE*>(value), &size))
      return;
    const std::string shown_name = name_length == 0 ? "" : " " + ToUtf8(FromWide(name));
    lines.push_back(path + shown_name + " = " + ToUtf8(FromWide(value)));
  }
}

void AddTree(HKEY key, const std::string& path, REGSAM view, std::vector<std::string>& lines) {
  AddValues(key, path, lines);
  for (DWORD i = 0;; ++i) {
    wchar_t name[kLongest] = L"";
    DWORD length = kLongest;
    HKEY child = nullptr;
    if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr)) return;
    if (RegOpenKeyExW(key, name, 0, KEY_READ | view, &child)) continue;
    AddTree(child, path + "\\" + ToUtf8(FromWide(name)), view, lines);
    RegCloseKey(child);
  }
}

}  // namespace

std::vector<std::string> TreeAt(HKEY root, const wchar_t* key, REGSAM view) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root, key, 0, KEY_READ | view, &opened)) return {"no such key"};
  std::vector<std::string> lines;
  AddTree(opened, "", view, lines);
  RegCloseKey(opened);
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace kestrune::testing
