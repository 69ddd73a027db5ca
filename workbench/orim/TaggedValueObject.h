// A tagged value of an element as the host's automation shows it.
#pragma once

#include "workbench/orim/Host.h"
#include "workbench/orim/TaggedValueTable.h"

namespace kestrune::workbench {

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

}  // namespace kestrune::workbench
