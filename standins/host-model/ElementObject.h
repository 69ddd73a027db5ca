// An element of the model as the host's automation shows it.
#pragma once

#include <bitset>

#include "standins/host-model/ElementTable.h"
#include "standins/host-model/Host.h"

namespace kestrune::standins {

/// Changes stay in this object until Save, which writes all its fields: of two objects for one element, the
/// one that is saved last wins whole.
class ElementObject : public HostObject<ElementObject> {
 public:
  static constexpr const char16_t* kClassName = u"Element";
  static const Members& Table();

  ElementObject(HostPtr host, ElementRow row);

 private:
  static Member FieldMember(std::size_t field);
  void Put(std::size_t field, const Variant& value);
  Variant Save(const Args&);
  Variant TaggedValues();

  ElementRow row_;
  std::bitset<kElementFields.size()> changed_;  // since the last Save
};

/// The element with that id; throws AutomationError when there is none.
Object ElementById(const HostPtr& host, std::int32_t id);

}  // namespace kestrune::standins
