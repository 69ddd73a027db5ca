#include "platform/windows/Module.h"

#include "platform/com/ComText.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // the linker's name for the front of the module

namespace kestrune {

HINSTANCE ThisModule() {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

Text ThisModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  while (true) {
    const DWORD length = GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return Text(FromWide({path.data(), length}));
    path.resize(path.size() * 2);
  }
}

}  // namespace kestrune
