#include "standins/doors-database/OpenModule.h"

namespace kestrune::standins {

namespace {

std::vector<PlaceInModule> HandlesFor(OpenModule* module, std::size_t count) {
  std::vector<PlaceInModule> handles(count);
  for (std::size_t i = 0; i < count; ++i) handles[i] = {module, static_cast<int>(i)};
  return handles;
}

}  // namespace

OpenModule::OpenModule(DoorsDatabase& database, const Item& item, bool is_displayed)
    : id(item.id),
      path(database.FullName(item.id)),
      name(item.name),
      type(item.type),
      prefix(item.prefix),
      description(item.description),
      content(database, item.id),
      is_displayed(is_displayed),
      accepted_(content.Objects().size(), true),
      object_handles_(HandlesFor(this, content.Objects().size())),
      attribute_handles_(HandlesFor(this, content.Attributes().size())) {}

bool OpenModule::ShowView(const Text& name, const std::vector<FilterCondition>& conditions) {
  auto accepted = Accepted(content, conditions);
  if (!accepted) return false;
  accepted_ = std::move(*accepted);
  view_ = name;
  is_filtering_ = !conditions.empty();
  ShowDeleted(false);
  return true;
}

void OpenModule::ShowDeleted(bool on) {
  shows_deleted_ = on;
  numbers_.reset();
}

Text OpenModule::OutlineNumber(int place) {
  if (!numbers_) numbers_.emplace(content, shows_deleted_);
  return numbers_->At(place);
}

std::shared_ptr<PlaceInModule> OpenModule::Handle(std::vector<PlaceInModule>& handles, int place) {
  if (place == ModuleContent::kNone) return nullptr;
  return {shared_from_this(), &handles[static_cast<std::size_t>(place)]};
}

}  // namespace kestrune::standins
