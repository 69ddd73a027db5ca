// Compiling and running scripts.
//
//   CompileResult compiled = Compile({u"export.dxl", text}, library);
//   if (compiled.program) error = Run(*compiled.program, host);
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "standins/dxl/Error.h"
#include "standins/dxl/Host.h"

namespace kestrune::dxl {

class Library;
class Program;

struct Source {
  Text name;  // for error messages
  Text text;
};

struct CompileResult {
  std::shared_ptr<const Program> program;  // null when there are errors
  std::vector<Error> errors;
};

/// Checks names and types of the whole script and prepares it for running. Of syntax errors the first is
/// reported, of all others every one. The library must outlive the program.
CompileResult Compile(const Source& source, const Library& library);

/// Cycles (statements and loop turns) after which DOORS would ask whether to go on. Nobody can answer, so the
/// script is stopped with an error. `pragma runLim, n` changes the limit, 0 lifts it.
inline constexpr long long kDefaultRunLimit = 1'000'000;

/// Runs the script to its end, a halt or a run-time error, which is returned. A program may be run many
/// times. Of the exceptions that perms throw, ScriptError becomes a run-time error; any other leaves Run.
std::optional<Error> Run(const Program& program, Host& host);

/// Compiles without running and gives the report that DOORS' checkDXL gives, "" for a script without errors.
Text CheckDxl(const Source& source, const Library& library);

}  // namespace kestrune::dxl
