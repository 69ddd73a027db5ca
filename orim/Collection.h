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

  /// The item of that name, or nothing: the host answers a name that it does not know with an error.
  Item Find(const Text& name) const {
    try {
      return Item(object().Call(member::kGetByName, {name}).ToObject());
    } catch (const AutomationError& failure) {
      if (error::IsConnectionLost(failure.Number)) throw;
      return Item();
    }
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
