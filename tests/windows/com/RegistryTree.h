// A part of the registry as text.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace kestrune::testing {

/// The texts below `key`, each as "\subkey name = value", in the order of keys and names; "no such key" where
/// there is none. `view` may ask for what 32-bit or 64-bit programs see (KEY_WOW64_...).
std::vector<std::string> TreeAt(HKEY root, const wchar_t* key, REGSAM view = 0);

}  // namespace kestrune::testing
