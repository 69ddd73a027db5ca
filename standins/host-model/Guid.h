// Names for packages and elements that no other model has.
#pragma once

#include "platform/Text.h"

namespace kestrune::standins {

/// A fresh random GUID in braces and upper case, such as {0F8FAD5B-D9CB-469F-A165-70867728950E}.
Text NewGuid();

}  // namespace kestrune::standins
