#include <iostream>

#include "common/Resources.h"
#include "platform/Files.h"
#include "standins/doors-database/LoadReqif.h"
#include "workbench/Commands.h"

namespace kestrune::workbench {

namespace {

void PrintLines(const Text& answer, std::ostream& out) {
  for (const Text& line : Split(answer, u"\n"))
    if (!line.empty()) out << ToUtf8(line) << '\n';
}

DoorsDatabase OpenOrCreate(const std::string& path) {
  return std::filesystem::exists(path) ? DoorsDatabase::Open(path) : DoorsDatabase::Create(path);
}

/// A database that only this command made is no use when nothing could be loaded into it.
struct NewFileGuard {
  explicit NewFileGuard(std::string path)
      : path(std::move(path)), is_new(!std::filesystem::exists(this->path)) {}
  ~NewFileGuard() {
    std::error_code ignored;
    if (is_new) std::filesystem::remove(path, ignored);
  }
  std::string path;
  bool is_new;
};

}  // namespace

void LoadIntoDoors(const Settings& settings, const std::string& file, const std::string& folder,
                   const Terminal& terminal) {
  NewFileGuard guard(settings.doors);
  auto database = OpenOrCreate(settings.doors);
  const auto modules = LoadReqif(database, FromUtf8(file), FromUtf8(folder));
  guard.is_new = false;
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
