// What DOORS has and this interpreter does not, so that a script hears that instead of "syntax error".
#pragma once

#include <optional>

#include "standins/dxl/Token.h"

namespace kestrune::dxl {

/// What is not supported where the parser cannot go on: "the operator ->", "#include", "switch", "the type
/// DB". `next` is the token behind it. Nothing for a token that has no place in DXL either.
std::optional<Text> UnsupportedAt(const Token& token, const Token& next);

/// "... is not supported here".
Text NotSupported(TextView what);

/// What to say of a word that neither the script nor the library knows.
Text UnknownWord(TextView word);
/// The same of the property behind a dot.
Text UnknownProperty(TextView word);

}  // namespace kestrune::dxl
