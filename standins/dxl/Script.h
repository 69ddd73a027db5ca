// Compiling and running scripts.
//
//   CompileResult compiled = Compile({u"export.dxl", text}, library);
//   if (compiled.program) error = Run(*compiled.program, host);
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "standins/dxl/Budget.h"
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

/// What a run has used.
struct RunCost {
  long long cycles = 0;
  long long strings = 0;  // texts made, the empty ones left out: what DOORS would keep in its string table
  std::size_t peak_bytes = 0;
};

struct RunOutcome {
  std::optional<Error> error;
  RunCost cost;
};

/// Runs the script to its end, a halt or a run-time error. A program may be run many times. Of the exceptions
/// that perms throw, ScriptError becomes a run-time error; any other leaves Run.
RunOutcome Run(const Program& program, Host& host, std::size_t memory_limit = kDefaultMemoryLimit);

/// Compiles without running and gives the report that DOORS' checkDXL gives, "" for a script without errors.
Text CheckDxl(const Source& source, const Library& library);

}  // namespace kestrune::dxl
