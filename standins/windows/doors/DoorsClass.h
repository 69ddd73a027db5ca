// The COM class of the simulated DOORS.
#pragma once

#include <string>
#include <windows.h>

namespace kestrune::standins {

inline constexpr const wchar_t* kDoorsProgId = L"Doors.Application";
inline constexpr CLSID kDoorsClassId = {  // {F382E2ED-4D2F-45F6-86D6-22D15A5D34A9}
    0xF382E2ED,
    0x4D2F,
    0x45F6,
    {0x86, 0xD6, 0x22, 0xD1, 0x5A, 0x5D, 0x34, 0xA9}};

/// Writes the keys by which Windows finds the class, for all users of the machine; COM then starts this
/// program with the database when the class is asked for and no DOORS runs. Throw AutomationError.
void RegisterDoors(const std::wstring& database);
void UnregisterDoors();

}  // namespace kestrune::standins
