#include "standins/doors-database/DoorsSession.h"

#include <algorithm>

#include "platform/Files.h"

namespace kestrune::standins {

std::shared_ptr<OpenModule> DoorsSession::FindOpen(ItemId module) const {
  const auto found = std::ranges::find(open_, module, [](const auto& open) { return open->id; });
  return found == open_.end() ? nullptr : *found;
}

std::shared_ptr<OpenModule> DoorsSession::OpenItem(const Item& item, bool is_displayed) {
  if (auto open = FindOpen(item.id)) return open;
  open_.push_back(std::make_shared<OpenModule>(database_, item, is_displayed));
  if (is_displayed && windows_) open_.back()->window = windows_->Open();
  return open_.back();
}

void DoorsSession::Close(OpenModule& module) {
  module.is_open = false;
  if (module.window) windows_->Close(module.window);
  if (current_module.get() == &module) current_module = nullptr;
  std::erase_if(open_, [&](const auto& open) { return open.get() == &module; });
}

bool DoorsSession::CloseAsking(OpenModule& module) {
  if (!module.is_edited) return Close(module), true;
  complaints_.push_back(u"asked whether to save " + module.path);
  return false;
}

void DoorsSession::CloseLosing(OpenModule& module) {
  if (module.is_edited) complaints_.push_back(u"lost the changes of " + module.path);
  Close(module);
}

void DoorsSession::CloseAll() {
  while (!open_.empty()) Close(*std::shared_ptr<OpenModule>(open_.back()));
}

bool DoorsSession::LoadView(OpenModule& module, const Text& name, bool& refuses) {
  const auto view = ReadView(database_.Sql(), module.id, name);
  refuses = view && view->loadable && !view->conditions.empty() && !module.is_displayed;
  if (!view || !view->loadable || refuses) return false;
  return module.ShowView(name, view->conditions);
}

Text DoorsSession::NewTempName() {
  for (;;) {
    const auto path = ToPath(temp_folder_) / ToPath(u"DP" + ToText(++temp_names_));
    if (!std::filesystem::exists(path)) return FromPath(path);
  }
}

}  // namespace kestrune::standins
