// A person at the host's window: one model is open, one add-in loaded, one package selected.
#pragma once

#include "platform/Desktop.h"
#include "standins/host-model/OrimModel.h"
#include "standins/stage/AddIn.h"
#include "standins/stage/CommandError.h"

namespace kestrune::standins {

/// Belongs to the thread that made it, the one of the host's windows: Connect, Disconnect and ClickMenu
/// return when every dialog that they open has been closed.
class HostSession {
 public:
  /// The package is named by name or path; nothing is written yet.
  HostSession(OrimModel model, TextView package)
      : model_(std::move(model)), package_(model_.FindPackage(package)) {}
  /// Selects the package and connects the add-in, as the host does when it starts; needed before the commands
  /// below. Throws CommandError when the add-in does not take this host.
  void Load(AddIn add_in);
  /// Tells the add-in, if one is loaded, that the host is closing.
  void Unload();

  OrimModel& Model() { return model_; }
  Object Repository() const { return model_.Repository(); }
  const PackageInfo& Package() const { return package_; }

  /// By name or path.
  void SelectPackage(TextView path_or_name);
  /// The host's own commands that link the selected package and take its link away; true when they did.
  /// Throws CommandError when there is no link to take away.
  bool Connect() { return add_in_->Plexa_Connect(Repository(), package_.id, package_.guid); }
  bool Disconnect();
  /// Clicks an item of the add-in's menu, given as it stands there; throws CommandError when the menu does
  /// not offer it.
  void ClickMenu(const Text& item);
  /// Sends a command to the add-in as a click does, whether its menu shows the item or not; throws
  /// CommandError when the package is not linked.
  void Send(const Text& item);
  /// Locks or unlocks the selected package, as another user would.
  void SetLocked(bool locked) { model_.SetLocked(package_.element_id, locked); }

 private:
  /// The items of the add-in's menu, and the menu's own name.
  std::vector<Text> MenuItems(const Text& menu) const;
  Text MenuName() const;
  bool IsLinked() const;
  void RequireLink() const;

  OrimModel model_;
  PackageInfo package_;
  std::optional<AddIn> add_in_;
};

}  // namespace kestrune::standins
