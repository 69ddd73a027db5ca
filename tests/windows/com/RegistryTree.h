// A part of the registry as text.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace kestrune::testing {

/// The texts below `key`, each as "\subkey name = value", in the order of keys and names; "no such key" where
/// there is none.
std::vector<std::string> TreeAt(HKEY root, const wchar_t* key);

}  // namespace kestrune::testing
