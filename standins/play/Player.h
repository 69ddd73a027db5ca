// Plays a script: starts its commands and is the user of every dialog that they open, statement by statement.
// The first thing that departs from the script ends the play as a ScriptError, which passes through all open
// dialogs: each closes, and what it shows is not saved.
#pragma once

#include <functional>

#include "platform/Desktop.h"
#include "standins/play/Condition.h"

namespace kestrune::play {

/// A verb that starts something outside of the dialogs.
struct Command {
  Text form;  // as ParseScript takes it
  std::function<void(const Statement&)> run;
  bool during_dialogs = false;  // another program does it, so that open dialogs are no obstacle
};

class Player {
 public:
  Player(Script script, std::vector<Command> commands, Desktop& desktop)
      : script_(std::move(script)), commands_(std::move(commands)), desktop_(desktop) {}

  /// Plays the whole script; throws ScriptError.
  void Play();

  /// What the desktop has its user do meanwhile: use a dialog until it is closed, answer a message box, fill
  /// in an input box or, with nothing, cancel it.
  void Use(Dialog& dialog);
  Answer Decide(const Message& message);
  std::optional<Text> Enter(const Text& title);

 private:
  const Statement* Upcoming() const;
  const Statement& Take();
  /// Takes the statement that expects what has come, which has this verb.
  const Statement& TakeFor(TextView verb, TextView what_came);
  const Command* FindCommand(const Text& verb) const;

  /// `dialog` is the one in front, null where none is open.
  void Perform(Dialog* dialog, const Statement& statement);
  void CarryOut(Dialog* dialog, const Statement& statement);
  void Run(const Command& command, const Statement& statement) const;
  void WaitIn(Dialog& dialog, const Statement& statement) const;
  void Expect(const Dialog* dialog, const Statement& statement) const;
  /// What is the case instead of the condition; nothing when it is met.
  std::optional<Text> Instead(const Dialog* dialog, const Condition& condition) const;
  ControlState Look(const Dialog* dialog, const Text& subject) const;
  [[noreturn]] void Fail(const Statement& at, TextView what) const;

  Script script_;
  std::vector<Command> commands_;
  Desktop& desktop_;
  std::size_t taken_ = 0;  // statements; the last of them is the one under way
};

}  // namespace kestrune::play
