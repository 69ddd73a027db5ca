// What is wrong with a script: found before it runs (syntax, names, types) or while it runs.
#pragma once

#include <stdexcept>
#include <vector>

#include "platform/Text.h"

namespace kestrune::dxl {

/// A place in the source; both count from 1, columns in UTF-16 units. Line 0: no place.
struct Position {
  int line = 0;
  int column = 0;
};

struct Error {
  Text file;  // as given to Compile, may be empty
  Position at;
  Text message;  // such as u"undeclared variable (total)"
  bool is_runtime = false;
};

/// Thrown by a perm that fails. The interpreter adds the place, and under noError() keeps the
/// text and goes on.
struct ScriptError : std::runtime_error {
  /// A long message, as of a perm that names its argument, is cut.
  explicit ScriptError(TextView message) : runtime_error(ToUtf8(Cut(message))), message(Cut(message)) {}
  Text message;

 private:
  static TextView Cut(TextView message) {
    constexpr std::size_t kLongest = 500;
    return message.substr(0, kLongest);
  }
};

/// As DOORS prints it: "-E- DXL: <Line:2> undeclared variable (total)", "-R-E- DXL: ..." at run time; without
/// a file name, each on a line of its own, and a closing line with the number of errors.
Text DoorsReport(const std::vector<Error>& errors);

/// "file:2:7: message", the line of `source` and a caret under the column, for a terminal; each line ends in
/// "\n". Of a long line the part around the place is shown.
Text Explain(const std::vector<Error>& errors, TextView source);

}  // namespace kestrune::dxl
