// The resources that the add-in's own file carries: on Windows those of Kestrune.dll, so that a translated
// file needs no other code; in the native build a copy compiled in.
#pragma once

#include <string>

#include "platform/Text.h"

namespace kestrune {

/// The string-table entry, or "" when there is none.
Text StoredString(int id);

/// The bytes of a resource of a named type, such as "DXL"; throws AutomationError when there is none.
std::string StoredBytes(TextView type, int id);

}  // namespace kestrune
