#include "ScriptRun.h"

namespace kestrune::dxl {

namespace {

std::string Describe(const Error& error) {
  return std::string("line ")
      .append(std::to_string(error.at.line))
      .append(": ")
      .append(ToUtf8(error.message));
}

}  // namespace

Outcome RunScript(const std::string& script, std::size_t memory_limit) {
  Outcome outcome;
  const Library library;
  const CompileResult compiled = Compile({u"test", FromUtf8(script)}, library);
  for (const Error& error : compiled.errors) outcome.compile_errors.push_back(Describe(error));
  if (!compiled.program) return outcome;
  RecordingHost host;
  const auto [error, cost] = Run(*compiled.program, host, memory_limit);
  if (error) outcome.runtime_error = Describe(*error);
  outcome.cost = cost;
  outcome.printed = ToUtf8(host.printed);
  return outcome;
}

}  // namespace kestrune::dxl
