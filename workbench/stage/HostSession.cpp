#include "workbench/stage/HostSession.h"

#include <algorithm>

#include "common/Resources.h"

namespace kestrune::workbench {

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
  const Text menu = add_in_->Orim_GetMenuItems(Repository(), u"", u"").ToText();
  const auto items = add_in_->Orim_GetMenuItems(Repository(), u"", menu).ToTextArray();
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
  add_in_->Orim_MenuClick(Repository(), menu, item);
}

}  // namespace kestrune::workbench
