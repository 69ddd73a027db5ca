// The desktop on which a script is played: at a terminal, where message boxes and the lines of an import can
// be read, with the script as its user.
#pragma once

#include "standins/desktop/ConsoleDesktop.h"
#include "standins/play/Player.h"

namespace kestrune::play {

class PlayDesktop : public standins::ConsoleDesktop {
 public:
  PlayDesktop(std::istream& in, std::ostream& out, std::ostream& err);

  /// Plays a script with these commands; throws ScriptError at what departs from it.
  void Play(Script script, std::vector<Command> commands);

 protected:
  Answer AnswerTo(const Message& message) override;
  std::optional<Text> TextFor(const Text& title, const Text& prompt) override;

 private:
  std::optional<Player> player_;  // while a script is played
};

}  // namespace kestrune::play
