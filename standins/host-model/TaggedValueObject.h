// A tagged value of an element as the host's automation shows it.
#pragma once

#include "standins/host-model/Host.h"
#include "standins/host-model/TaggedValueTable.h"

namespace kestrune::standins {

/// Changes stay in this object until Save, which writes the whole row.
class TaggedValueObject : public HostObject<TaggedValueObject> {
 public:
  static constexpr const char16_t* kClassName = u"TaggedValue";
  static const Members& Table();

  TaggedValueObject(HostPtr host, TaggedValueRow row);

 private:
  void Put(Text TaggedValueRow::*field, const Variant& value);
  Variant Save(const Args&);

  TaggedValueRow row_;
  bool changed_;
};

}  // namespace kestrune::standins
