#include "standins/windows/doors/DoorsClass.h"

#include "platform/com/ComText.h"
#include "platform/com/Failure.h"
#include "platform/windows/Module.h"

namespace kestrune::standins {

namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes\\";

/// Sets the default value of a key of the classes.
void SetValue(const std::wstring& key, const std::wstring& value) {
  const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  const LSTATUS status =
      RegSetKeyValueW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str(), nullptr, REG_SZ, value.c_str(), bytes);
  Require(HRESULT_FROM_WIN32(status));
}

void RemoveKey(const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str());
  if (status != ERROR_FILE_NOT_FOUND) Require(HRESULT_FROM_WIN32(status));
}

std::wstring ClassId() {
  wchar_t text[40] = {};
  StringFromGUID2(kDoorsClassId, text, 40);
  return text;
}

}  // namespace

void RegisterDoors(const std::wstring& database) {
  const std::wstring program = Wide(ThisModulePath());
  const std::wstring key = L"CLSID\\" + ClassId();
  SetValue(kDoorsProgId + std::wstring(L"\\CLSID"), ClassId());
  SetValue(key + L"\\ProgID", kDoorsProgId);
  SetValue(key + L"\\LocalServer32", L"\"" + program + L"\" \"" + database + L"\"");
}

void UnregisterDoors() {
  RemoveKey(kDoorsProgId);
  RemoveKey(L"CLSID\\" + ClassId());
}

}  // namespace kestrune::standins
