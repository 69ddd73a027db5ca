#include "workbench/program/Machine.h"

#include <algorithm>
#include <cstdlib>

#include "common/Resources.h"
#include "workbench/doors/xml/DomDocument.h"

namespace kestrune::workbench {

namespace {

std::optional<Answer> FixedAnswer(const Settings& settings) {
  if (settings.yes) return Answer::kYes;
  if (settings.no) return Answer::kNo;
  return std::nullopt;
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
    : folders_(FromUtf8(settings.data)),
      database_(DoorsDatabase::Open(settings.doors)),
      stand_in_(database_, folders_.Temp(), *this, desktop) {}

Object DoorsMachine::Create(TextView prog_id) {
  if (prog_id == u"MSXML2.DOMDocument") return MakeDomDocument();
  throw AutomationError(error::kNoSuchClass, u"workbench", Text(u"There is no class ").append(prog_id));
}

Text DoorsMachine::RunAddInScript(int id, const Text& parameter) {
  const auto outcome = stand_in_.RunScript(LoadDxl(id), parameter, u"script " + ToText(id));
  if (!outcome.errors.empty()) throw CommandError(dxl::DoorsReport(outcome.errors));
  if (IsScriptError(outcome.result)) throw CommandError(outcome.result);
  return outcome.result;
}

Machine::Machine(const Settings& settings, const Terminal& terminal)
    : Machine(settings, std::make_unique<ConsoleDesktop>(terminal.in, terminal.out, terminal.err,
                                                         FixedAnswer(settings))) {}

Machine::Machine(const Settings& settings, std::unique_ptr<ConsoleDesktop> desktop)
    : desktop_(std::move(desktop)),
      model_(OpenModel(settings)),
      package_(model_.FindPackage(FromUtf8(settings.package))),
      doors_(settings, desktop_.get()) {
  model_.SelectPackage(package_.Id);
  const orim::Repository repository = Repository();
  if (add_in_.Orim_Connect(repository).empty()) throw CommandError(u"The add-in does not take this host.");
  add_in_.Orim_OnPostInitialized(repository);
}

Object Machine::Create(TextView prog_id) {
  if (prog_id == u"Doors.Application") return doors_.StandIn().Application();
  throw AutomationError(error::kNoSuchClass, u"workbench", Text(u"There is no class ").append(prog_id));
}

void Machine::SelectPackage(TextView path_or_name) {
  package_ = model_.FindPackage(path_or_name);
  model_.SelectPackage(package_.Id);
}

void Machine::ClickMenu(int item_id) {
  ClickMenu(LoadResText(item_id));
}

void Machine::ClickMenu(const Text& item) {
  const Text menu = LoadResText(text::kMenuTop);
  const auto items = add_in_.Orim_GetMenuItems(Repository(), u"", menu).ToTextArray();
  const auto offers = [&items](const Text& label) {
    return std::find(items.begin(), items.end(), label) != items.end();
  };
  const bool is_linked = offers(LoadResText(text::kMenuImport));
  // "&Export" is never in the menu, and nevertheless a command of every linked package.
  const bool is_export = item == LoadResText(text::kMenuExport);
  if (!offers(item) && !(is_linked && is_export)) {
    throw CommandError(is_linked
                           ? u"The add-in's menu has no item \"" + item + u"\"."
                           : u"The package \"" + package_.Name + u"\" is not linked to a DOORS module.");
  }
  add_in_.Orim_MenuClick(Repository(), menu, item);
}

}  // namespace kestrune::workbench
