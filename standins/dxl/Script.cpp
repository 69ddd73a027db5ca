#include "standins/dxl/Script.h"

#include <algorithm>

#include "standins/dxl/Machine.h"
#include "standins/dxl/Parser.h"
#include "standins/dxl/StatementChecker.h"

namespace kestrune::dxl {

CompileResult Compile(const Source& source, const Library& library) {
  CompileResult result;
  auto program = std::make_shared<Program>();
  program->file_name = source.name;
  std::vector<Problem> problems;
  try {
    problems = StatementChecker(*program, library).Check(Parse(source.text, library));
  } catch (const Problem& problem) {
    problems.push_back(problem);
  }
  std::stable_sort(problems.begin(), problems.end(),
                   [](const Problem& a, const Problem& b) { return a.at.line < b.at.line; });
  for (Problem& problem : problems)
    result.errors.push_back({source.name, problem.at, std::move(problem.message)});
  if (result.errors.empty()) result.program = std::move(program);
  return result;
}

RunOutcome Run(const Program& program, Host& host, std::size_t memory_limit) {
  Budget budget(memory_limit);
  RunOutcome outcome;
  try {
    Machine(program, host, budget).Run();
  } catch (const Stopped& stop) {
    outcome.error = {program.file_name, stop.at, stop.message, /*is_runtime=*/true};
  }
  outcome.cost = {budget.Cycles(), budget.Strings(), budget.PeakBytes()};
  return outcome;
}

Text CheckDxl(const Source& source, const Library& library) {
  return DoorsReport(Compile(source, library).errors);
}

}  // namespace kestrune::dxl
