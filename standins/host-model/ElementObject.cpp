#include "standins/host-model/ElementObject.h"

#include "standins/host-model/Collections.h"

namespace kestrune::standins {

const ElementObject::Members& ElementObject::Table() {
  static const Members table = [] {
    Members members = {
        {u"ElementID", {.Get = [](ElementObject& self) { return Variant(self.row_.Id); }}},
        {u"Guid", {.Get = [](ElementObject& self) { return Variant(self.row_.Guid); }}},
        {u"Type", {.Get = [](ElementObject& self) { return Variant(self.row_.Type); }}},
        {u"Locked", {.Get = [](ElementObject& self) { return Variant(self.row_.Locked); }}},
        {u"TaggedValues", {.Get = &ElementObject::TaggedValues}},
        {u"Save", {.Call = &ElementObject::Save}},
    };
    for (std::size_t i = 0; i < kElementFields.size(); ++i)
      members.emplace(kElementFields[i].Member, FieldMember(i));
    return members;
  }();
  return table;
}

ElementObject::ElementObject(HostPtr host, ElementRow row)
    : HostObject(std::move(host)), row_(std::move(row)) {
  if (row_.Id == 0) changed_.set(kNameField);
}

ElementObject::Member ElementObject::FieldMember(std::size_t field) {
  return {.Get = [field](ElementObject& self) -> Variant {
            const Variant& value = self.row_.Fields[field];
            if (kElementFields[field].IsNumber) return value.ToInt();
            return value.ToText();
          },
          .Put = [field](ElementObject& self, const Variant& value) { self.Put(field, value); }};
}

void ElementObject::Put(std::size_t field, const Variant& value) {
  const ElementField& description = kElementFields[field];
  host_->Faults.OnElementField(description.Member, HostFaults::Moment::kPut);
  const Variant converted = description.IsNumber ? Variant(value.ToInt()) : Variant(value.ToText());
  if (!(row_.Fields[field] == converted)) changed_.set(field);
  row_.Fields[field] = converted;
}

Variant ElementObject::Save(const Args&) {
  for (std::size_t i = 0; i < kElementFields.size(); ++i)
    if (changed_[i]) host_->Faults.OnElementField(kElementFields[i].Member, HostFaults::Moment::kSave);
  SaveElement(host_->Model, row_);
  host_->Counters.CountWrite();
  changed_.reset();
  return {};
}

Variant ElementObject::TaggedValues() {
  if (row_.Id == 0) RefuseByHost(u"An element has tagged values only once it is saved");
  return std::make_shared<TaggedValueCollection>(host_, row_.Id)->AsObject();
}

Object ElementById(const HostPtr& host, std::int32_t id) {
  std::optional<ElementRow> row = FindElement(host->Model, id);
  if (!row) RefuseByHost(u"Element " + ToText(id) + u" does not exist");
  return std::make_shared<ElementObject>(host, std::move(*row))->AsObject();
}

}  // namespace kestrune::standins
