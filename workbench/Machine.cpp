#include "workbench/Machine.h"

#include <chrono>
#include <cstdlib>

#include "common/Resources.h"
#include "doors/Doors.h"
#include "standins/doors-database/LoadReqif.h"
#include "standins/doors-database/SimulatedDoorsWindows.h"
#include "standins/doors-database/xml/DomDocument.h"
#include "workbench/AddInObject.h"

namespace kestrune::workbench {

namespace {

/// Whether the import asks for rules to go for good, which a failure that has passed tomorrow is no reason for.
bool IsExclusionQuestion(const Message& message) {
  const Text question = FormatResText(text::kExcludeQuestion);
  return message.Body.starts_with(question.substr(0, question.find(u"%s")));
}

ConsoleDesktop::Answers AnswersOf(const Settings& settings) {
  return [settings](const Message& message) -> std::optional<Answer> {
    if (!settings.yes && !settings.no && !settings.exclude) return std::nullopt;
    if (IsExclusionQuestion(message)) return settings.exclude ? Answer::kYes : Answer::kNo;
    if (settings.yes) return Answer::kYes;
    if (settings.no) return Answer::kNo;
    return std::nullopt;
  };
}

/// Exports that a program which was killed has left; one that is younger may be under way.
void RemoveOldExports(const Text& folder) {
  std::error_code ignored;
  const auto an_hour_ago = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
  for (const auto& file : std::filesystem::directory_iterator(ToPath(folder), ignored)) {
    const bool is_export = file.path().filename().string().starts_with("DP");
    if (is_export && file.last_write_time(ignored) < an_hour_ago)
      std::filesystem::remove(file.path(), ignored);
  }
}

}  // namespace

std::string DefaultDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  const char* home = std::getenv("HOME");
  const auto base = data && *data ? std::filesystem::path(data)
                                  : std::filesystem::path(home ? home : ".") / ".local" / "share";
  return (base / "kestrune-workbench").string();
}

OrimModel OpenModel(const Settings& settings) {
  return OrimModel::Open(settings.model);
}

DoorsMachine::DoorsMachine(const Settings& settings, HeadlessDesktop* desktop)
    : database_(DoorsDatabase::Open(settings.doors)),
      folders_(FromUtf8(settings.data)),
      stand_in_(database_, folders_.Temp(), *this,
                desktop ? std::make_unique<SimulatedDoorsWindows>(*desktop) : nullptr) {
  RemoveOldExports(folders_.Temp());
}

Object DoorsMachine::Create(TextView prog_id) {
  if (prog_id == u"MSXML2.DOMDocument") return MakeDomDocument();
  throw AutomationError(error::kNoSuchClass, u"workbench", Text(u"There is no class ").append(prog_id));
}

Text DoorsMachine::RunAddInScript(int id, const Text& parameter) {
  const auto outcome = stand_in_.RunScript(LoadDxl(id), parameter, u"script " + ToText(id));
  if (!outcome.errors.empty()) throw CommandError(dxl::DoorsReport(outcome.errors));
  if (ScriptError(outcome.result)) throw CommandError(outcome.result);
  return outcome.result;
}

Machine::Machine(const Settings& settings, const Terminal& terminal)
    : Machine(settings, std::make_unique<ConsoleDesktop>(terminal.in, terminal.out, terminal.err,
                                                         AnswersOf(settings))) {}

Machine::Machine(const Settings& settings, std::unique_ptr<ConsoleDesktop> desktop)
    : desktop_(std::move(desktop)),
      host_(OpenModel(settings), FromUtf8(settings.package)),
      doors_(settings, desktop_.get()) {
  host_.Load(AddIn(std::make_shared<AddInObject>(platform_)->AsObject()));
}

Object Machine::Create(TextView prog_id) {
  if (prog_id == u"Doors.Application") return doors_.StandIn().Application();
  throw AutomationError(error::kNoSuchClass, u"workbench", Text(u"There is no class ").append(prog_id));
}

void Machine::SetPhase(DoorsPhase state) {
  Doors().SetPhase(state);
}

void Machine::Load(const Text& file, const Text& folder) {
  Doors().UserClosesAll();
  LoadReqif(doors_.Database(), file, folder);
}

void Machine::AddView(const Text& module, const Text& name, const Text& attribute, const Text& value) {
  AddViewTo(doors_.Database(), module, name, attribute, value);
}

}  // namespace kestrune::workbench
