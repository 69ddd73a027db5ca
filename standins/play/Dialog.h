// An open dialog as its user has it: controls to be acted on and looked at, by name. However a dialog is
// reached, a script is played on it through this.
#pragma once

#include "standins/play/Script.h"

namespace kestrune::play {

/// What can be seen of a control.
struct ControlState {
  bool enabled = true;
  bool visible = true;
  Text content;                         // its caption, or what it holds
  std::vector<std::vector<Text>> rows;  // of lists: cells; a plain list has one in each row
  std::vector<Text> selected;           // first cells of the selected rows
};

/// A user cannot do this: the control is not there, not of that kind, disabled or hidden, or lacks the line.
struct Refusal : std::runtime_error {
  explicit Refusal(TextView why) : runtime_error(ToUtf8(why)) {}
};

/// What every dialog refuses, in the same words.
void RequireReachable(const ControlState& state, const Text& control, const Text& dialog);
[[noreturn]] void RefuseKind(const Text& control);
/// The place of the row that begins with `line`.
std::size_t PlaceOf(const Text& line, const ControlState& state, const Text& control);

class Dialog {
 public:
  virtual ~Dialog() = default;
  /// The name by which scripts know it.
  virtual const Text& Name() const = 0;
  virtual Text Caption() const = 0;
  virtual bool IsOpen() const = 0;
  /// Carries out press, select, doubleclick, type, drop, menu or close; throws Refusal.
  virtual void Do(const Statement& action) = 0;
  /// Throws Refusal when there is no such control.
  virtual ControlState Look(const Text& control) const = 0;
  /// Lets one interval of the timers pass.
  virtual void Wait() = 0;
};

}  // namespace kestrune::play
