#include "standins/doors-database/DoorsStandIn.h"

#include <utility>

#include "standins/doors-database/DoorsApplication.h"

namespace kestrune::standins {

namespace {

int NumberAt(const OpenModule& module, int place) {
  return place == ModuleContent::kNone ? 0 : module.At(place).absolute_number;
}

/// A failure that was set for one run must not strike in the next one, however the run ends.
struct EndOfRun {
  PermTable& perms;
  ~EndOfRun() { perms.Spare(); }
};

}  // namespace

DoorsStandIn::DoorsStandIn(DoorsDatabase& database, Text temp_folder, ObjectFactory& objects,
                           std::unique_ptr<DoorsWindows> windows, DoorsPhase state)
    : session_(database, std::move(temp_folder), std::move(windows)),
      perms_(library_, session_, objects),
      state_(state),
      application_(std::make_shared<DoorsApplication>(*this)) {
  AddDoorsPerms(perms_);
  session_.ShowPhase(state_);
}

DoorsStandIn::~DoorsStandIn() {
  application_->Disconnect();
}

Object DoorsStandIn::Application() {
  return Object(application_);
}

void DoorsStandIn::SetPhase(DoorsPhase state) {
  if (state != DoorsPhase::kReady) session_.CloseAll();
  state_ = state;
  session_.ShowPhase(state);
}

void DoorsStandIn::Print(TextView text) {
  log_ += text;
}

ScriptOutcome DoorsStandIn::RunScript(const Text& script, Text parameter, const Text& name) {
  result_ = std::move(parameter);
  const std::size_t logged = log_.size();
  ScriptOutcome outcome;
  outcome.errors = Execute({name, script});
  outcome.result = result_;
  outcome.output = log_.substr(logged);
  log_ += dxl::DoorsReport(outcome.errors);
  return outcome;
}

void DoorsStandIn::RunStr(const Text& script) {
  if (failure_) throw AutomationError(*std::exchange(failure_, std::nullopt));
  log_ += dxl::DoorsReport(Execute({{}, script}));
}

std::vector<dxl::Error> DoorsStandIn::Execute(const dxl::Source& source) {
  const EndOfRun end_of_run{perms_};
  session_.current_module = nullptr;
  const dxl::CompileResult compiled = dxl::Compile(source, library_);
  if (!compiled.program) return compiled.errors;
  const auto [error, cost] = dxl::Run(*compiled.program, *this);
  cost_ = cost;
  if (!error) return {};
  return {*error};
}

std::vector<Text> DoorsStandIn::FormalModules() {
  std::vector<Text> paths;
  for (const Item& item : session_.Database().Modules())
    if (item.type == u"Formal" && !item.deleted) paths.push_back(session_.Database().FullName(item.id));
  return paths;
}

std::optional<std::vector<Text>> DoorsStandIn::ViewsOf(TextView module_path) {
  const auto item = session_.Database().FindPath(module_path);
  if (!item || !item->IsModule()) return std::nullopt;
  return session_.Database().Views(item->id);
}

std::vector<OpenModuleState> DoorsStandIn::OpenModules() const {
  std::vector<OpenModuleState> states;
  for (const auto& module : session_.Open()) {
    states.push_back({module->path, module->is_displayed, module->is_edited, module->ViewName(),
                      NumberAt(*module, module->current_object), NumberAt(*module, module->scrolled_to)});
  }
  return states;
}

bool DoorsStandIn::UserOpens(TextView module_path, bool is_displayed, const Text& view) {
  const auto item = session_.Database().FindPath(module_path);
  if (!item || !item->IsModule()) return false;
  bool refuses = false;
  return session_.LoadView(*session_.OpenItem(*item, is_displayed), view, refuses);
}

void DoorsStandIn::UserEdits(TextView module_path) {
  session_.FindOpen(session_.Database().FindPath(module_path)->id)->is_edited = true;
}

}  // namespace kestrune::standins
