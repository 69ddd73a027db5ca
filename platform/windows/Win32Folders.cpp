#include "platform/windows/Win32Folders.h"

#include <shlobj.h>
#include <windows.h>

#include "platform/com/ComText.h"
#include "platform/windows/Module.h"

namespace kestrune {

std::optional<Text> Win32Folders::RoamingAppData() const {
  wchar_t folder[MAX_PATH] = L"";
  const HRESULT result =
      SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, folder);
  if (result != S_OK) return std::nullopt;
  return Text(FromWide(folder));
}

Text Win32Folders::Temp() const {
  wchar_t folder[MAX_PATH + 1] = L"";
  const DWORD length = GetTempPathW(static_cast<DWORD>(std::size(folder)), folder);
  return Text(FromWide({folder, length}));
}

Text Win32Folders::AddIn() const {
  const Text path = ThisModulePath();
  return path.substr(0, path.rfind(u'\\'));
}

}  // namespace kestrune
