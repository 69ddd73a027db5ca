// The file that this code is linked into: Kestrune.dll, or the program that contains it.
#pragma once

#include <windows.h>

#include "platform/Text.h"

namespace kestrune {

HINSTANCE ThisModule();

/// The full path of its file.
Text ThisModulePath();

}  // namespace kestrune
