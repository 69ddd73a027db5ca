// A command of a user that cannot be carried out.
#pragma once

#include <stdexcept>

#include "platform/Text.h"

namespace kestrune::standins {

/// The text is for the user, in one line.
struct CommandError : std::runtime_error {
  explicit CommandError(TextView what) : runtime_error(ToUtf8(what)) {}
};

}  // namespace kestrune::standins
