// What the simulated DOORS keeps from one script run to the next: the open modules and their windows.
#pragma once

#include "standins/doors-database/DoorsWindows.h"
#include "standins/doors-database/OpenModule.h"

namespace kestrune::standins {

class DoorsSession {
 public:
  /// `windows` is null where nobody looks.
  DoorsSession(DoorsDatabase& database, Text temp_folder, std::unique_ptr<DoorsWindows> windows)
      : database_(database), temp_folder_(std::move(temp_folder)), windows_(std::move(windows)) {}

  DoorsDatabase& Database() { return database_; }
  /// Shows the main window as it looks in that state.
  void ShowPhase(DoorsPhase state) {
    if (windows_) windows_->Show(state);
  }

  /// In the order in which they were opened.
  const std::vector<std::shared_ptr<OpenModule>>& Open() const { return open_; }
  /// Null when the module is not open.
  std::shared_ptr<OpenModule> FindOpen(ItemId module) const;
  /// Opens a module; one that is open already stays as it is, with or without a window. Throws
  /// AutomationError when its content makes no sense.
  std::shared_ptr<OpenModule> OpenItem(const Item& item, bool is_displayed);
  void Close(OpenModule& module);
  /// `close` without a word on saving: the user is asked about unsaved changes, and nobody answers. False
  /// then, and the module stays open.
  bool CloseAsking(OpenModule& module);
  /// `close` that saves nothing: what was not saved is lost.
  void CloseLosing(OpenModule& module);
  void CloseAll();

  /// What the user was asked by scripts, or lost through them.
  const std::vector<Text>& Complaints() const { return complaints_; }

  /// To be kept by every loop over the database's items or modules for as long as it goes on.
  std::shared_ptr<void> NewWalk() const { return walks_; }
  bool IsWalked() const { return walks_.use_count() > 1; }

  /// False when the module has no such view or it cannot be loaded. `refuses` is set when it is not known
  /// what DOORS does: a view with a filter, loaded into a module without a window.
  bool LoadView(OpenModule& module, const Text& name, bool& refuses);

  /// The module that perms without a module argument mean; each script run begins without one.
  std::shared_ptr<OpenModule> current_module;

  /// A path that no file has and that was not given before.
  Text NewTempName();

 private:
  DoorsDatabase& database_;
  Text temp_folder_;
  std::unique_ptr<DoorsWindows> windows_;
  std::vector<std::shared_ptr<OpenModule>> open_;
  std::vector<Text> complaints_;
  std::shared_ptr<void> walks_ = std::make_shared<char>();
  int temp_names_ = 0;
};

}  // namespace kestrune::standins
