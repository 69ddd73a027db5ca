// A session of a user, written down: one statement a line, to be carried out in that order. Who reads a
// script does not know how its statements are carried out.
//
//   # what follows is not read
//   connect                              a command: starts something at the host
//   form frmConnect                      the next dialog that opens is this one; the lines below are done in
//     select lstModules "/Demo/Reqs"     it until it closes, those after that in the dialog behind it
//     press cmdOK
//   answer OK "Done."                    the next message box
//
// A line is a verb with names (bare words: controls, forms, states) and texts ("..." with \" \\ \n \t; \n is
// a line break). Indentation means nothing. The statements that the user of a dialog has are these:
//
//   form NAME                            press NAME
//   select NAME TEXT+                    a line of a list or of an opened box; one or more rows of a table,
//   doubleclick NAME TEXT                by their first column
//   type NAME TEXT                       drop NAME             opens a box's list
//   menu NAME NAME                       the pop-up menu that is open, and its item
//   close                                the close box
//   answer Yes|No|OK TEXT                input TEXT            input cancel
//   clipboard TEXT                       puts it there, as another program would
//   wait                                 until the timers have ticked once
//   wait until closed                    wait until CONDITION
//   expect CONDITION
//
//   CONDITION: NAME enabled|disabled|visible|hidden
//              NAME TEXT                 its caption, or what it holds; NAME may be caption, clipboard
//              NAME selected TEXT*       all that is selected
//              NAME lines TEXT*          all lines; of a table, the first column
//              NAME row TEXT+            one of its rows, cell by cell
//
// A text that is expected and ends in ... is the beginning of what must come.
#pragma once

#include <stdexcept>

#include "platform/Text.h"

namespace kestrune::play {

struct Statement {
  std::size_t Line = 0;  // from 1
  Text Source;           // the line as it is written, without blanks at its ends
  Text Verb;
  std::vector<Text> Names;  // the bare words after the verb
  std::vector<Text> Texts;
};

struct Script {
  Text File;
  std::vector<Statement> Statements;
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
