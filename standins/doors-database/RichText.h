// DOORS' markup for formatted text: "{\b bold}", with the braces and backslashes of the text itself escaped.
#pragma once

#include "platform/Text.h"

namespace kestrune::standins {

/// Plain text as markup.
Text EscapeMarkup(TextView plain);

}  // namespace kestrune::standins
