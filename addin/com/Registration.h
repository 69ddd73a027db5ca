// What the registry says of the add-in: its class, its ProgID and its type library.
#pragma once

#include <windows.h>

namespace kestrune {

enum class Audience { kUser, kMachine };

/// Writes it all, or nothing: what was written before a failure is taken away again. The machine's part of
/// the registry takes an administrator, the user's own does not; what the same user has registered for
/// himself makes way for it. Throws AutomationError.
void Register(Audience audience);

/// Removes all that Register writes, as far as it is there and the add-in of the other bitness does not need
/// it. Throws AutomationError when something resists, after removing the rest.
void Unregister(Audience audience);

}  // namespace kestrune
