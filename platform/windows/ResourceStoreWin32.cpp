#include <windows.h>

#include "platform/Automation.h"
#include "platform/ResourceStore.h"
#include "platform/com/ComText.h"
#include "platform/windows/Module.h"

namespace kestrune {

Text StoredString(int id) {
  const wchar_t* text = nullptr;
  // Asked for a buffer of no size, the system gives the place of the text itself.
  const int length = LoadStringW(ThisModule(), static_cast<UINT>(id), reinterpret_cast<wchar_t*>(&text), 0);
  return Text(FromWide({text, static_cast<std::size_t>(length)}));
}

std::string StoredBytes(TextView type, int id) {
  const HRSRC found = FindResourceW(ThisModule(), MAKEINTRESOURCEW(id), Wide(Text(type)));
  if (!found) {
    throw AutomationError(error::kFileFailure, u"Kestrune",
                          Text(u"There is no resource ").append(type).append(u" ") + ToText(id));
  }
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(ThisModule(), found)));
  return {bytes, SizeofResource(ThisModule(), found)};
}

}  // namespace kestrune
