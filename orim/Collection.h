// The host's collections of packages, elements and tagged values: indexed from 0, searched by name.
#pragma once

#include <optional>

#include "orim/Handle.h"

namespace kestrune::orim {

template <typename Item>
class Collection : public Handle {
 public:
  using Handle::Handle;

  std::int32_t Count() const { return GetInt(member::kCount); }
  Item GetAt(std::int32_t index) const { return Item(object().Call(member::kGetAt, {index}).ToObject()); }

  /// The item of that name. Throws for a name that the host does not know, with an error like any other.
  Item GetByName(const Text& name) const {
    return Item(object().Call(member::kGetByName, {name}).ToObject());
  }
  /// The item of that name, or nothing. Every item is looked at: taking whatever GetByName throws for "no
  /// such item" would have a second one made where the host has only failed to answer.
  Item Find(const Text& name) const {
    for (std::int32_t index = 0, count = Count(); index < count; ++index)
      if (Item item = GetAt(index); item.Name() == name) return item;
    return Item();
  }

  /// A new item, in the model only after its Save. `second` is the type, of a tagged value its value.
  Item AddNew(const Text& name, const Text& second) const {
    return Item(object().Call(member::kAddNew, {name, second}).ToObject());
  }
  void DeleteAt(std::int32_t index, bool refresh) const {
    object().Call(member::kDeleteAt, {index, refresh});
  }
  void Refresh() const { object().Call(member::kRefresh); }
};

}  // namespace kestrune::orim
