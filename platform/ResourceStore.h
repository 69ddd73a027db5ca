// The resources that the add-in's own file carries: on Windows those of Kestrune.dll, so that a translated
// file needs no other code; in the native build a copy compiled in.
#pragma once

#include <string>

#include "platform/Text.h"

namespace kestrune {

/// The entries of the string table that the platform itself shows.
namespace stored {
inline constexpr int kTitle = 110;
inline constexpr int kOk = 158;
inline constexpr int kCancel = 159;
inline constexpr int kHelpFileMissing = 205;
inline constexpr int kHelpNotShown = 206;
inline constexpr int kCannotRead = 207;
inline constexpr int kCannotWrite = 208;
inline constexpr int kCannotDelete = 209;
inline constexpr int kNoMsxml = 210;
inline constexpr int kDtdRefused = 211;
}  // namespace stored

/// The string-table entry, or "" when there is none.
Text StoredString(int id);
/// The same with `argument` in place of its "%s", or behind it.
inline Text StoredString(int id, TextView argument) {
  Text text = StoredString(id);
  const auto place = text.find(u"%s");
  return place == Text::npos ? text.append(argument) : text.replace(place, 2, argument);
}

/// The bytes of a resource of a named type, such as "DXL"; throws AutomationError when there is none.
std::string StoredBytes(TextView type, int id);

}  // namespace kestrune
