// What a play's script starts at the host, and what other people do in DOORS meanwhile.
#pragma once

#include <iosfwd>

#include "standins/play/Player.h"
#include "standins/stage/Colleagues.h"
#include "standins/stage/HostSession.h"

namespace kestrune::standins {

/// Commands marked DuringDialogs go to the colleagues alone and
/// may run on any thread; all others run on the session's thread.
class Stage {
 public:
  /// `desktop` shows what the add-in raises, in a box of the host's own; files are named from `folder`; `out`
  /// is printed on.
  Stage(HostSession& host, Colleagues& colleagues, Desktop& desktop, std::filesystem::path folder,
        std::ostream& out)
      : host_(host), colleagues_(colleagues), desktop_(desktop), folder_(std::move(folder)), out_(out) {}

  /// They refer to this stage.
  std::vector<play::Command> Commands();

 private:
  using Action = std::function<void(const play::Statement&)>;
  Action AtHost(Action action);

  HostSession& host_;
  Colleagues& colleagues_;
  Desktop& desktop_;
  std::filesystem::path folder_;
  std::ostream& out_;
};

/// Reads a script that uses the stage's commands; throws ScriptError.
play::Script ReadScript(const Text& file, const std::vector<play::Command>& commands);

}  // namespace kestrune::standins
