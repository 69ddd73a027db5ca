// Cuts a script into tokens and decides which line ends count. A line end that ends a statement becomes a
// newline token; those straight after an operator or a comma, after a comment that is empty or ends in "-",
// before a ")" and before else become nothing, and of several in a row one is left.
#pragma once

#include <vector>

#include "standins/dxl/Token.h"

namespace kestrune::dxl {

/// The last token is kEnd. Throws Problem.
std::vector<Token> Tokenize(TextView source);

}  // namespace kestrune::dxl
