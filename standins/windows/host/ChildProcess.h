// Other programs, started without a share in this one's output: whoever reads that to its
// end would wait for them.
#pragma once

#include <windows.h>

#include "platform/Text.h"

namespace kestrune::standins {

/// Starts a program by its words, the first of which is its file. The handle is the caller's
/// to close. Throws CommandError.
HANDLE StartProgram(const std::vector<Text>& words);

/// Waits for its end, closes the handle and returns the exit status. After `limit` milliseconds it ends the
/// program and throws CommandError.
DWORD AwaitEnd(HANDLE process, DWORD limit);

}  // namespace kestrune::standins
