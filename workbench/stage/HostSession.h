// A person at the host's window: one model is open, one add-in loaded, one package selected.
#pragma once

#include "platform/Desktop.h"
#include "workbench/orim/OrimModel.h"
#include "workbench/stage/AddInCallbacks.h"
#include "workbench/stage/CommandError.h"

namespace kestrune::workbench {

/// Belongs to the thread that made it, the one of the host's windows: Connect, Disconnect and ClickMenu
/// return when every dialog that they open has been closed.
class HostSession {
 public:
  /// The package is named by name or path; nothing is written yet.
  HostSession(OrimModel model, TextView package)
      : model_(std::move(model)), package_(model_.FindPackage(package)) {}
  /// Selects the package and connects the add-in, as the host does when it starts; needed before the commands
  /// below. Throws CommandError when the add-in does not take this host.
  void Load(AddInCallbacks& add_in);

  OrimModel& Model() { return model_; }
  Object Repository() const { return model_.Repository(); }
  const PackageInfo& Package() const { return package_; }

  /// By name or path.
  void SelectPackage(TextView path_or_name);
  /// The host's own commands that link the selected package and take its link away; true when they did.
  /// Throws CommandError when there is no link to take away.
  bool Connect() { return add_in_->Plexa_Connect(Repository(), package_.Id, package_.Guid); }
  bool Disconnect();
  /// Clicks an item of the add-in's menu, given as it stands there or by its text's id; throws CommandError
  /// when the menu does not offer it, such as Import where the package is not linked.
  void ClickMenu(const Text& item);
  void ClickMenu(int item_id);
  /// Locks or unlocks the selected package, as another user would.
  void SetLocked(bool locked) { model_.SetLocked(package_.ElementId, locked); }

 private:
  /// The items of the add-in's menu, and the menu's own name.
  std::vector<Text> MenuItems(const Text& menu) const;
  Text MenuName() const;
  [[noreturn]] void RefuseUnlinked() const;

  OrimModel model_;
  PackageInfo package_;
  AddInCallbacks* add_in_ = nullptr;
};

}  // namespace kestrune::workbench
