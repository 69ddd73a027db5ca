// A session of a user, written down: one statement a line, to be carried out in that order. Who reads a
// script does not know how its statements are carried out.
//
//   connect                              a command: starts something at the host
//   form frmConnect                      the next dialog that opens is this one; the lines below are done in it
//     select lstModules "/Demo/Reqs"     until it closes, those after that in the dialog behind it
//     press cmdOK
//   answer OK "Done."                    the next message box
//
// docs/play.md has every statement.
#pragma once

#include <stdexcept>

#include "platform/Text.h"

namespace kestrune::play {

struct Statement {
  std::size_t line = 0;  // from 1
  Text source;           // the line as it is written, without blanks at its ends
  Text verb;
  std::vector<Text> names;  // the bare words after the verb
  std::vector<Text> texts;
};

struct Script {
  Text file;
  std::vector<Statement> statements;
};

/// What is wrong with a script, or what departs from it: "file:line: what: the line".
struct ScriptError : std::runtime_error {
  ScriptError(const Text& file, std::size_t line, TextView source, TextView what);
};

/// Reads a script; throws ScriptError at the first line that is no statement. `commands` are the forms of the
/// statements beyond those above, written as they are there: u"package TEXT", u"doors gone|ready".
Script ParseScript(const Text& file, TextView source, const std::vector<Text>& commands);

/// `text` as a script writes it.
Text Quoted(TextView text);

}  // namespace kestrune::play
