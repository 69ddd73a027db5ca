#include "standins/play/Dialog.h"

#include <algorithm>

namespace kestrune::play {

void RequireReachable(const ControlState& state, const Text& control, const Text& dialog) {
  if (!state.visible) throw Refusal(control + u" of " + dialog + u" is hidden");
  if (!state.enabled) throw Refusal(control + u" of " + dialog + u" is disabled");
}

void RefuseKind(const Text& control) {
  throw Refusal(control + u" is not a control with which a user can do this");
}

std::size_t PlaceOf(const Text& line, const ControlState& state, const Text& control) {
  const auto found = std::find_if(state.rows.begin(), state.rows.end(),
                                  [&](const auto& row) { return !row.empty() && row.front() == line; });
  if (found == state.rows.end()) throw Refusal(control + u" has no line " + Quoted(line));
  return static_cast<std::size_t>(found - state.rows.begin());
}

}  // namespace kestrune::play
