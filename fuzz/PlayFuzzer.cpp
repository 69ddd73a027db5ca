// A script of what a user does, played on a form with one control of each kind.
#include <sstream>

#include "fuzz/Fuzz.h"
#include "standins/play/PlayDesktop.h"
#include "tests/standins/play/SamplePlays.h"

namespace kestrune::fuzz {

void Fuzz(std::string_view input) {
  std::istringstream in;
  std::ostringstream out, err;
  play::PlayDesktop desktop(in, out, err);
  bool completed = false;
  try {
    play::Script script = play::SampleScript(FromUtf8(input));
    for (const play::Statement& statement : script.statements)
      for (Text text : statement.texts) {
        const auto again = play::SampleScript(u"clipboard " + play::Quoted(text));
        std::erase(text, u'\r');  // a line break is one sign in a script
        Require(again.statements[0].texts[0] == text, "a text is written so that it reads back");
      }
    desktop.Play(std::move(script), play::SampleCommands(desktop, completed));
  } catch (const play::ScriptError&) {
    return;
  }
}

}  // namespace kestrune::fuzz
