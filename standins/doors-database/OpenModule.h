// A module that the simulated DOORS has open: its content and what is shown of it.
#pragma once

#include <memory>

#include "platform/Desktop.h"
#include "standins/doors-database/ModuleContent.h"
#include "standins/doors-database/OutlineNumbers.h"
#include "standins/doors-database/ViewFilter.h"

namespace kestrune::standins {

class OpenModule;

/// What a script holds of an object or an attribute definition; two of the same one are the same pointer.
struct PlaceInModule {
  OpenModule* module = nullptr;
  int place = 0;
};

class OpenModule : public std::enable_shared_from_this<OpenModule> {
 public:
  OpenModule(DoorsDatabase& database, const standins::Item& item, bool is_displayed);

  const ItemId id;
  const Text path;
  const Text name;
  const Text type;
  const Text prefix;
  const Text description;
  const ModuleContent content;

  bool is_open = true;  // false once closed; whatever a script still holds of it is dead then
  bool is_displayed;
  bool is_edited = false;  // open for editing, with changes that are not saved
  WindowHandle window = 0;
  int current_object = ModuleContent::kNone;
  int scrolled_to = ModuleContent::kNone;

  const Text& ViewName() const { return view_; }
  /// False, and no change, when one of the conditions names an unknown attribute.
  bool ShowView(const Text& name, const std::vector<FilterCondition>& conditions);

  bool IsFiltering() const { return is_filtering_; }
  void SetFiltering(bool on) { is_filtering_ = on; }
  void ShowDeleted(bool on);

  /// By the filter of the view, or because nothing is filtered.
  bool IsAccepted(int place) const { return !is_filtering_ || accepted_[static_cast<std::size_t>(place)]; }
  /// Whether the object is in the display set, as which headers and rows of tables count too.
  bool IsInDisplaySet(int place) const { return IsAccepted(place) && (shows_deleted_ || !At(place).deleted); }
  Text OutlineNumber(int place);

  const DoorsObject& At(int place) const { return content.Objects()[static_cast<std::size_t>(place)]; }
  Text Identifier(int place) const { return prefix + ToText(At(place).absolute_number); }

  /// Handles for scripts; null for kNone.
  std::shared_ptr<PlaceInModule> ObjectHandle(int place) { return Handle(object_handles_, place); }
  std::shared_ptr<PlaceInModule> AttributeHandle(int place) { return Handle(attribute_handles_, place); }

 private:
  std::shared_ptr<PlaceInModule> Handle(std::vector<PlaceInModule>& handles, int place);

  Text view_{kStandardView};
  bool is_filtering_ = false;
  bool shows_deleted_ = false;
  std::vector<bool> accepted_;
  std::optional<OutlineNumbers> numbers_;  // nothing until one is asked for
  std::vector<PlaceInModule> object_handles_;
  std::vector<PlaceInModule> attribute_handles_;
};

}  // namespace kestrune::standins
