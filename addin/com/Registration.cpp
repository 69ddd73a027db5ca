#include "addin/com/Registration.h"

#include <Kestrune_h.h>
#include <vector>

#include "platform/com/ComText.h"
#include "platform/com/Failure.h"
#include "platform/windows/Module.h"

namespace kestrune {

namespace {

constexpr const char16_t* kClasses = u"Software\\Classes\\";
constexpr const char16_t* kTitle = u"Kestrune Link";
constexpr const char16_t* kProgId = u"Kestrune.OrimDoors";
constexpr const char16_t* kLibraryVersion = u"1.0";
constexpr bool kIs64Bit = sizeof(void*) == 8;
constexpr const char16_t* kKind = kIs64Bit ? u"win64" : u"win32";
constexpr const char16_t* kOtherKind = kIs64Bit ? u"win32" : u"win64";
constexpr const char16_t* kLibraryMarshaler = u"{00020424-0000-0000-C000-000000000046}";  // the system's

/// A value of the registry; no name means the key's own value.
struct Entry {
  Text Key;
  Text Name;
  Text Value;
};

Text Braced(REFGUID guid) {
  wchar_t text[39] = L"";
  StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
  return Text(FromWide(text));
}

/// The keys that are the add-in's own, with all below them. A machine may have the 64-bit and the 32-bit
/// add-in: each has a Class and an Interface of its own, as the system keeps these apart, while they share
/// ProgId and Library, in which each has the key of its kind.
struct Keys {
  Text ProgId = Text(kClasses) + kProgId;
  Text Class = Text(kClasses) + u"CLSID\\" + Braced(__uuidof(::OrimDoors));
  Text Library = Text(kClasses) + u"TypeLib\\" + Braced(LIBID_Kestrune);
  Text LibraryVersion = Library + u"\\" + kLibraryVersion;
  Text Interface = Text(kClasses) + u"Interface\\" + Braced(__uuidof(_OrimDoors));
  Text LibraryOf(const char16_t* kind) const { return LibraryVersion + u"\\0\\" + kind; }
};

// Not by RegisterTypeLib: its sibling for the user alone writes for the machine on some systems.
std::vector<Entry> Entries(const Keys& keys) {
  const Text file = ThisModulePath();
  const Text library_id = Braced(LIBID_Kestrune);
  return {
      {keys.ProgId, u"", kTitle},
      {keys.ProgId + u"\\CLSID", u"", Braced(__uuidof(::OrimDoors))},
      {keys.Class, u"", kTitle},
      {keys.Class + u"\\ProgID", u"", kProgId},
      {keys.Class + u"\\TypeLib", u"", library_id},
      {keys.Class + u"\\InprocServer32", u"", file},
      {keys.Class + u"\\InprocServer32", u"ThreadingModel", u"Apartment"},
      {keys.LibraryVersion, u"", kTitle},
      {keys.LibraryOf(kKind), u"", file},
      {keys.LibraryVersion + u"\\FLAGS", u"", u"0"},
      {keys.Interface, u"", u"_OrimDoors"},
      {keys.Interface + u"\\ProxyStubClsid32", u"", kLibraryMarshaler},
      {keys.Interface + u"\\TypeLib", u"", library_id},
      {keys.Interface + u"\\TypeLib", u"Version", kLibraryVersion},
  };
}

HKEY RootFor(Audience audience) {
  return audience == Audience::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

void RequireStatus(LSTATUS status) {
  Require(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

void Write(HKEY root, const Entry& entry) {
  const auto size = static_cast<DWORD>((entry.Value.size() + 1) * sizeof(wchar_t));
  RequireStatus(RegSetKeyValueW(root, Wide(entry.Key), Wide(entry.Name), REG_SZ, Wide(entry.Value), size));
}

bool IsThere(HKEY root, const Text& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root, Wide(key), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
  RegCloseKey(opened);
  return true;
}

/// Removes what is there but what the add-in of the other kind needs, whatever resists; returns the last
/// failure.
LSTATUS RemoveAll(HKEY root, const Keys& keys) {
  std::vector<Text> own = {keys.Class, keys.Interface};
  if (IsThere(root, keys.LibraryOf(kOtherKind))) {
    own.push_back(keys.LibraryOf(kKind));
  } else {
    own.insert(own.end(), {keys.ProgId, keys.Library});
  }
  LSTATUS failure = ERROR_SUCCESS;
  for (const Text& key : own) {
    const LSTATUS status = RegDeleteTreeW(root, Wide(key));
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) failure = status;
  }
  return failure;
}

}  // namespace

void Register(Audience audience) {
  const Keys keys;
  try {
    for (const Entry& entry : Entries(keys)) Write(RootFor(audience), entry);
    // What the user alone had registered would go before what the machine now has.
    if (audience == Audience::kMachine) RequireStatus(RemoveAll(RootFor(Audience::kUser), keys));
  } catch (...) {
    RemoveAll(RootFor(audience), keys);
    throw;
  }
}

void Unregister(Audience audience) {
  RequireStatus(RemoveAll(RootFor(audience), Keys()));
}

}  // namespace kestrune
