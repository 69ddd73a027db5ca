// What an action failed with.
#pragma once

#include <functional>
#include <string>

#include "platform/Automation.h"

namespace kestrune::testing {

/// The description of the AutomationError that `action` throws; "" when it throws nothing.
inline std::string FailureOf(const std::function<void()>& action) {
  try {
    action();
    return "";
  } catch (const AutomationError& failure) {
    return ToUtf8(failure.Description);
  }
}

}  // namespace kestrune::testing
