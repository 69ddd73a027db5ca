#include "standins/stage/HostSession.h"

#include <algorithm>

namespace kestrune::standins {

void HostSession::Load(AddIn add_in) {
  add_in_ = std::move(add_in);
  model_.SelectPackage(package_.id);
  if (add_in_->Orim_Connect(Repository()).empty()) throw CommandError(u"The add-in does not take this host.");
  add_in_->Orim_OnPostInitialized(Repository());
}

void HostSession::Unload() {
  if (add_in_) add_in_->Orim_Disconnect();
  add_in_.reset();
}

void HostSession::SelectPackage(TextView path_or_name) {
  package_ = model_.FindPackage(path_or_name);
  model_.SelectPackage(package_.id);
}

void HostSession::ClickMenu(const Text& item) {
  const Text menu = MenuName();
  const auto items = MenuItems(menu);
  if (std::ranges::find(items, item) == items.end()) {
    RequireLink();
    throw CommandError(u"The add-in's menu has no item \"" + item + u"\".");
  }
  add_in_->Orim_MenuClick(Repository(), menu, item);
}

void HostSession::Send(const Text& item) {
  RequireLink();
  add_in_->Orim_MenuClick(Repository(), MenuName(), item);
}

bool HostSession::Disconnect() {
  RequireLink();
  return add_in_->Plexa_Disconnect(Repository(), package_.guid);
}

Text HostSession::MenuName() const {
  return add_in_->Orim_GetMenuItems(Repository(), u"", u"").ToText();
}

std::vector<Text> HostSession::MenuItems(const Text& menu) const {
  return add_in_->Orim_GetMenuItems(Repository(), u"", menu).ToTextArray();
}

bool HostSession::IsLinked() const {
  const auto linked = add_in_->Plexa_GetConnectedPackages(Repository());
  return std::ranges::find(linked, package_.guid) != linked.end();
}

void HostSession::RequireLink() const {
  if (!IsLinked())
    throw CommandError(u"The package \"" + package_.name + u"\" is not linked to a DOORS module.");
}

}  // namespace kestrune::standins
