#include "standins/host-model/TaggedValueObject.h"

namespace kestrune::standins {

const TaggedValueObject::Members& TaggedValueObject::Table() {
  const auto text = [](Text TaggedValueRow::*field) {
    return Member{.Get = [field](TaggedValueObject& self) { return Variant(self.row_.*field); },
                  .Put = [field](TaggedValueObject& self, const Variant& value) { self.Put(field, value); }};
  };
  static const Members table = {
      {u"Name", text(&TaggedValueRow::Name)},
      {u"Value", text(&TaggedValueRow::Value)},
      {u"Notes", text(&TaggedValueRow::Notes)},
      {u"Save", {.Call = &TaggedValueObject::Save}},
  };
  return table;
}

TaggedValueObject::TaggedValueObject(HostPtr host, TaggedValueRow row)
    : HostObject(std::move(host)), row_(std::move(row)), changed_(row_.Id == 0) {}

void TaggedValueObject::Put(Text TaggedValueRow::*field, const Variant& value) {
  host_->Faults.OnTaggedValue(row_.Name, HostFaults::Moment::kPut);
  Text text = value.ToText();
  if (row_.*field == text) return;
  row_.*field = std::move(text);
  changed_ = true;
}

Variant TaggedValueObject::Save(const Args&) {
  if (changed_) host_->Faults.OnTaggedValue(row_.Name, HostFaults::Moment::kSave);
  SaveTaggedValue(host_->Model, row_);
  host_->Counters.CountWrite();
  changed_ = false;
  return {};
}

}  // namespace kestrune::standins
