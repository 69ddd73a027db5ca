// Numbers in texts, as isValidInt, intOf and realOf understand them: the whole text, without blanks around.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/Text.h"

namespace kestrune::dxl {

/// An optional sign and decimal digits, within 32 bits.
std::optional<std::int32_t> ParseInt(TextView text);
/// A decimal number such as -1.5 or 2e10.
std::optional<double> ParseReal(TextView text);

}  // namespace kestrune::dxl
