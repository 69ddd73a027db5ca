#include "platform/Files.h"
#include "workbench/doors/LoadReqif.h"
#include "workbench/play/PlayDesktop.h"
#include "workbench/program/Commands.h"

namespace kestrune::workbench {

namespace {

constexpr const char16_t* kHostTitle = u"Orim Studio";

DoorsState StateNamed(TextView name) {
  static constexpr std::pair<TextView, DoorsState> kStates[] = {{u"starting", DoorsState::kStartUp},
                                                                {u"login", DoorsState::kLogin},
                                                                {u"password", DoorsState::kPasswordCheck},
                                                                {u"ready", DoorsState::kReady}};
  for (const auto& [state_name, state] : kStates)
    if (name == state_name) return state;
  return DoorsState::kNotRunning;
}

/// What a script starts at the host, and what other people do in DOORS meanwhile.
class Stage {
 public:
  Stage(Machine& machine, std::string folder, const Terminal& terminal)
      : machine_(machine), folder_(std::move(folder)), terminal_(terminal) {}

  std::vector<play::Command> Commands() {
    return {
        {u"new TEXT", [this](const play::Statement& line) { machine_.Model().AddPackage(0, line.Texts[0]); }},
        {u"package TEXT", [this](const play::Statement& line) { machine_.SelectPackage(line.Texts[0]); }},
        {u"connect", AtHost([this](const play::Statement&) { Connect(); })},
        {u"disconnect", AtHost([this](const play::Statement&) { Disconnect(); })},
        {u"click TEXT", AtHost([this](const play::Statement& line) { machine_.ClickMenu(line.Texts[0]); })},
        {u"lock", [this](const play::Statement&) { SetLocked(true); }},
        {u"unlock", [this](const play::Statement&) { SetLocked(false); }},
        {u"tree", [this](const play::Statement&) { PrintTree(machine_.Model(), terminal_); }},
        {u"doors gone|starting|login|password|ready",
         [this](const play::Statement& line) { machine_.Doors().SetState(StateNamed(line.Names[0])); }, true},
        {u"load TEXT TEXT", [this](const play::Statement& line) { Load(line.Texts[0], line.Texts[1]); },
         true},
        {u"view TEXT TEXT TEXT TEXT",
         [this](const play::Statement& line) {
           AddView(line.Texts[0], line.Texts[1], line.Texts[2], line.Texts[3]);
         },
         true},
    };
  }

 private:
  using Action = std::function<void(const play::Statement&)>;

  /// What an add-in does not catch, its host shows.
  Action AtHost(Action action) {
    return [this, action = std::move(action)](const play::Statement& line) {
      try {
        action(line);
      } catch (const AutomationError& failure) {
        machine_.Desktop().Show({.Body = failure.Description, .Title = kHostTitle, .Icon = Icon::kStop});
      }
    };
  }

  void Connect() {
    const PackageInfo& package = machine_.Package();
    machine_.AddIn().Plexa_Connect(machine_.Repository(), package.Id, package.Guid);
  }
  void Disconnect() { machine_.AddIn().Plexa_Disconnect(machine_.Repository(), machine_.Package().Guid); }
  void SetLocked(bool locked) { machine_.Model().SetLocked(machine_.Package().ElementId, locked); }

  /// Brings a ReqIF file, named from the script's folder, into a folder of DOORS.
  void Load(const Text& file, const Text& folder) {
    machine_.Doors().UserClosesAll();
    LoadReqif(machine_.DoorsData(), FromPath(std::filesystem::path(folder_) / ToPath(file)), folder);
  }

  /// Saves a view of a module that shows the objects whose attribute has this value.
  void AddView(const Text& module, const Text& name, const Text& attribute, const Text& value) {
    const auto item = machine_.DoorsData().FindPath(module);
    if (!item || !item->IsModule()) throw CommandError(u"DOORS has no module \"" + module + u"\".");
    Database& database = machine_.DoorsData().Sql();
    database.Prepare("INSERT INTO view (module, name) VALUES (?, ?)", item->id, name).Run();
    database
        .Prepare("INSERT INTO view_filter (view, attribute, operator, value) VALUES (?, ?, 'equals', ?)",
                 database.LastInsertId(), attribute, value)
        .Run();
  }

  Machine& machine_;
  std::string folder_;
  const Terminal& terminal_;
};

}  // namespace

void Play(const Settings& settings, const std::string& script, const Terminal& terminal) {
  auto owned = std::make_unique<play::PlayDesktop>(terminal.in, terminal.out, terminal.err);
  play::PlayDesktop& desktop = *owned;
  desktop.PrintLinesOf(u"List1");
  Machine machine(settings, std::move(owned));
  Stage stage(machine, std::filesystem::path(script).parent_path().string(), terminal);
  const auto commands = stage.Commands();
  std::vector<Text> forms;
  for (const play::Command& command : commands) forms.push_back(command.Form);
  const Text source = FromUtf8(ReadFile(FromUtf8(script)));
  desktop.Play(play::ParseScript(FromUtf8(script), source, forms), commands);
}

}  // namespace kestrune::workbench
