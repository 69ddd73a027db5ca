// What a script expects to see.
#pragma once

#include <optional>

#include "standins/play/Dialog.h"

namespace kestrune::play {

/// A condition of the script language, taken apart.
struct Condition {
  Text subject;
  Text what;  // "enabled" ... "row"; "" for the text itself
  std::vector<Text> texts;
};

/// The condition that stands in a statement from its name number `first` on.
Condition ConditionIn(const Statement& statement, std::size_t first);

/// Nothing when the condition is met, else what is the case: "is disabled".
std::optional<Text> Unmet(const Condition& condition, const ControlState& state);

/// True when `seen` is the expected text or begins as one that
/// ends in "..." does; kinds of line ends make no difference.
bool Matches(TextView seen, TextView expected);

}  // namespace kestrune::play
