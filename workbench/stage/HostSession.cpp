#include "workbench/stage/HostSession.h"

#include <algorithm>

#include "common/Resources.h"

namespace kestrune::workbench {

namespace {

bool Offers(const std::vector<Text>& items, const Text& label) {
  return std::find(items.begin(), items.end(), label) != items.end();
}

/// The add-in offers an import for linked packages only.
bool IsLinked(const std::vector<Text>& items) {
  return Offers(items, LoadResText(text::kMenuImport));
}

}  // namespace

void HostSession::Load(AddInCallbacks& add_in) {
  add_in_ = &add_in;
  model_.SelectPackage(package_.Id);
  if (add_in_->Orim_Connect(Repository()).empty()) throw CommandError(u"The add-in does not take this host.");
  add_in_->Orim_OnPostInitialized(Repository());
}

void HostSession::SelectPackage(TextView path_or_name) {
  package_ = model_.FindPackage(path_or_name);
  model_.SelectPackage(package_.Id);
}

void HostSession::ClickMenu(int item_id) {
  ClickMenu(LoadResText(item_id));
}

void HostSession::ClickMenu(const Text& item) {
  const Text menu = MenuName();
  const auto items = MenuItems(menu);
  if (!IsLinked(items) && !Offers(items, item)) RefuseUnlinked();
  // "&Export" is never in the menu, and nevertheless a command of every linked package.
  if (!Offers(items, item) && item != LoadResText(text::kMenuExport))
    throw CommandError(u"The add-in's menu has no item \"" + item + u"\".");
  add_in_->Orim_MenuClick(Repository(), menu, item);
}

bool HostSession::Disconnect() {
  if (!IsLinked(MenuItems(MenuName()))) RefuseUnlinked();
  return add_in_->Plexa_Disconnect(Repository(), package_.Guid);
}

Text HostSession::MenuName() const {
  return add_in_->Orim_GetMenuItems(Repository(), u"", u"").ToText();
}

std::vector<Text> HostSession::MenuItems(const Text& menu) const {
  return add_in_->Orim_GetMenuItems(Repository(), u"", menu).ToTextArray();
}

void HostSession::RefuseUnlinked() const {
  throw CommandError(u"The package \"" + package_.Name + u"\" is not linked to a DOORS module.");
}

}  // namespace kestrune::workbench
