#include <iostream>

#include "common/Resources.h"
#include "platform/Files.h"
#include "standins/doors-database/LoadReqif.h"
#include "workbench/Commands.h"
#include "workbench/NewFile.h"

namespace kestrune::workbench {

namespace {

void PrintLines(const Text& answer, std::ostream& out) {
  for (const Text& line : Split(answer, u"\n"))
    if (!line.empty()) out << ToUtf8(line) << '\n';
}

std::vector<LoadedModule> LoadInto(const std::string& path, const Text& file, const Text& folder) {
  if (std::filesystem::exists(path)) {
    auto database = DoorsDatabase::Open(path);
    return LoadReqif(database, file, folder);
  }
  NewFile draft(path);
  std::vector<LoadedModule> modules;
  {
    auto database = DoorsDatabase::Create(draft.Draft());
    modules = LoadReqif(database, file, folder);
  }
  draft.Finish();
  return modules;
}

}  // namespace

void LoadIntoDoors(const Settings& settings, const std::string& file, const std::string& folder,
                   const Terminal& terminal) {
  const auto modules = LoadInto(settings.doors, FromUtf8(file), FromUtf8(folder));
  for (const LoadedModule& module : modules) {
    for (const Text& warning : module.warnings) terminal.err << "Warning: " << ToUtf8(warning) << '\n';
    terminal.out << ToUtf8(module.path) << " (" << module.objects << " objects";
    if (module.added) terminal.out << ", " << module.added << " new";
    if (module.restored) terminal.out << ", " << module.restored << " back again";
    if (module.removed) terminal.out << ", " << module.removed << " removed";
    terminal.out << ")\n";
  }
}

void ListModules(const Settings& settings, const Terminal& terminal) {
  PrintLines(DoorsMachine(settings).RunAddInScript(dxl_script::kListModules, u""), terminal.out);
}

void ListViews(const Settings& settings, const std::string& module, const Terminal& terminal) {
  PrintLines(DoorsMachine(settings).RunAddInScript(dxl_script::kListViews, FromUtf8(module)), terminal.out);
}

void RunDxl(const Settings& settings, const std::string& script, const std::string& parameter,
            const Terminal& terminal) {
  const Text source = FromUtf8(ReadFile(FromUtf8(script)));
  DoorsMachine machine(settings);
  const auto outcome = machine.StandIn().RunScript(source, FromUtf8(parameter), FromUtf8(script));
  terminal.out << ToUtf8(outcome.output);
  if (outcome.errors.empty()) {
    if (!outcome.result.empty()) terminal.out << ToUtf8(outcome.result) << '\n';
    return;
  }
  throw CommandError(Trim(dxl::Explain(outcome.errors, source)));
}

}  // namespace kestrune::workbench
