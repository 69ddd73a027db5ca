// DOORS, simulated: a database, the automation object "Doors.Application" that runs DXL scripts over it,
// windows, and switches to make it fail. It refuses aloud what it does not model; docs/doors-stand-in.md says
// what that is.
#pragma once

#include "standins/doors-database/perms/PermTable.h"
#include "standins/dxl/Script.h"

namespace kestrune::standins {

class DoorsApplication;

struct ScriptOutcome {
  Text result;  // the Result property afterwards
  Text output;  // what the script printed
  std::vector<dxl::Error> errors;
};

struct OpenModuleState {
  Text path;
  bool is_displayed = false;
  bool is_edited = false;
  Text view;
  int current_object = 0;  // absolute number, 0 for none
  int scrolled_to = 0;
};

class DoorsStandIn : private dxl::Host {
 public:
  /// `objects` makes what scripts create, such as "MSXML2.DOMDocument"; `temp_folder` is where
  /// they write; `windows` shows what is seen of it.
  DoorsStandIn(DoorsDatabase& database, Text temp_folder, ObjectFactory& objects,
               std::unique_ptr<DoorsWindows> windows = nullptr, DoorsPhase state = DoorsPhase::kReady);
  DoorsStandIn(const DoorsStandIn&) = delete;
  DoorsStandIn& operator=(const DoorsStandIn&) = delete;
  ~DoorsStandIn() override;

  /// "Doors.Application", the same each time. Unless DOORS is ready, each
  /// use throws AutomationError kNotConnected.
  Object Application();
  /// In any state but ready no module is open.
  void SetPhase(DoorsPhase state);
  /// The Result property.
  Text Result() override { return result_; }

  /// Runs a script as RunStr does, with `parameter` in Result before it. The name is for its error messages.
  ScriptOutcome RunScript(const Text& script, Text parameter, const Text& name);
  /// What scripts printed and what was wrong with them, as in DOORS' DXL output window.
  const Text& Log() const { return log_; }
  /// What the last run has used.
  const dxl::RunCost& Cost() const { return cost_; }

  /// The next RunStr throws `failure` and runs nothing.
  void FailNextRun(AutomationError failure) { failure_ = std::move(failure); }
  /// The next RunStr is broken off when it comes to its n-th perm of the database or of automation (from 1).
  void FailNextRunAt(int n, AutomationError failure) {
    InterruptNextRunAt(n, [failure = std::move(failure)] { throw AutomationError(failure); });
  }
  /// At that perm, `interrupt` is called, which may end the program.
  void InterruptNextRunAt(int n, std::function<void()> interrupt) {
    perms_.InterruptAt(n, std::move(interrupt));
  }

  /// Paths of the formal modules that are not deleted.
  std::vector<Text> FormalModules();
  /// Names of a module's views, without "Standard view"; nothing when there is no such module.
  std::optional<std::vector<Text>> ViewsOf(TextView module_path);
  std::vector<OpenModuleState> OpenModules() const;
  /// What the user was asked by scripts ("asked whether to save /P/M"), or lost through them ("lost the
  /// changes of /P/M"). A question ends as if the user had cancelled it.
  const std::vector<Text>& Complaints() const { return session_.Complaints(); }

  /// What a user does in DOORS. False when there is no such module, or no such view that can be loaded.
  bool UserOpens(TextView module_path, bool is_displayed, const Text& view = Text(kStandardView));
  /// Changes something in a module that is open, and does not save it yet.
  void UserEdits(TextView module_path);
  void UserClosesAll() { session_.CloseAll(); }

 private:
  friend class DoorsApplication;

  void Print(TextView text) override;
  void SetResult(Text result) override { result_ = std::move(result); }
  Text TempFileName() override { return session_.NewTempName(); }

  void RunStr(const Text& script);
  std::vector<dxl::Error> Execute(const dxl::Source& source);

  DoorsSession session_;
  dxl::Library library_;
  PermTable perms_;
  DoorsPhase state_;
  Text result_;
  Text log_;
  dxl::RunCost cost_;
  std::optional<AutomationError> failure_;
  std::shared_ptr<DoorsApplication> application_;
};

}  // namespace kestrune::standins
