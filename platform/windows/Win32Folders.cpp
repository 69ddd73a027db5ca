#include "platform/windows/Win32Folders.h"

#include <shlobj.h>
#include <windows.h>

#include "platform/com/ComText.h"
#include "platform/windows/Module.h"

namespace kestrune {

std::optional<Text> Win32Folders::RoamingAppData() const {
  char folder[MAX_PATH] = "";
  const HRESULT result =
      SHGetFolderPathA(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, folder);
  if (result != S_OK) return std::nullopt;
  return FromSystemCodePage(folder);
}

Text Win32Folders::Temp() const {
  char folder[MAX_PATH + 1] = "";
  const DWORD length = GetTempPathA(sizeof folder, folder);
  return FromSystemCodePage({folder, length});
}

Text Win32Folders::AddIn() const {
  const Text path = ThisModulePath();
  return path.substr(0, path.rfind(u'\\'));
}

}  // namespace kestrune
