#include "standins/host-model/TaggedValueObject.h"

namespace kestrune::standins {

const TaggedValueObject::Members& TaggedValueObject::Table() {
  const auto text = [](Text TaggedValueRow::*field) {
    return Member{.get = [field](TaggedValueObject& self) { return Variant(self.row_.*field); },
                  .put = [field](TaggedValueObject& self, const Variant& value) { self.Put(field, value); }};
  };
  static const Members table = {
      {u"Name", text(&TaggedValueRow::name)},
      {u"Value", text(&TaggedValueRow::value)},
      {u"Notes", text(&TaggedValueRow::notes)},
      {u"Save", {.call = &TaggedValueObject::Save}},
  };
  return table;
}

TaggedValueObject::TaggedValueObject(HostPtr host, TaggedValueRow row)
    : HostObject(std::move(host)), row_(std::move(row)), changed_(row_.id == 0) {}

void TaggedValueObject::Put(Text TaggedValueRow::*field, const Variant& value) {
  host_->faults.OnTaggedValue(row_.name, HostFaults::Moment::kPut);
  Text text = value.ToText();
  if (row_.*field == text) return;
  row_.*field = std::move(text);
  changed_ = true;
}

Variant TaggedValueObject::Save(const Args&) {
  if (changed_) host_->faults.OnTaggedValue(row_.name, HostFaults::Moment::kSave);
  SaveTaggedValue(host_->model, row_);
  host_->counters.CountWrite();
  changed_ = false;
  return {};
}

}  // namespace kestrune::standins
