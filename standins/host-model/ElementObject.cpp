#include "standins/host-model/ElementObject.h"

#include "standins/host-model/Collections.h"

namespace kestrune::standins {

const ElementObject::Members& ElementObject::Table() {
  static const Members table = [] {
    Members members = {
        {u"ElementID", {.get = [](ElementObject& self) { return Variant(self.row_.id); }}},
        {u"Guid", {.get = [](ElementObject& self) { return Variant(self.row_.guid); }}},
        {u"Type", {.get = [](ElementObject& self) { return Variant(self.row_.type); }}},
        {u"Locked", {.get = [](ElementObject& self) { return Variant(self.row_.locked); }}},
        {u"TaggedValues", {.get = &ElementObject::TaggedValues}},
        {u"Save", {.call = &ElementObject::Save}},
    };
    for (std::size_t i = 0; i < kElementFields.size(); ++i)
      members.emplace(kElementFields[i].member, FieldMember(i));
    return members;
  }();
  return table;
}

ElementObject::ElementObject(HostPtr host, ElementRow row)
    : HostObject(std::move(host)), row_(std::move(row)) {
  if (row_.id == 0) changed_.set(kNameField);
}

ElementObject::Member ElementObject::FieldMember(std::size_t field) {
  return {.get = [field](ElementObject& self) -> Variant {
            const Variant& value = self.row_.fields[field];
            if (kElementFields[field].is_number) return value.ToInt();
            return value.ToText();
          },
          .put = [field](ElementObject& self, const Variant& value) { self.Put(field, value); }};
}

void ElementObject::Put(std::size_t field, const Variant& value) {
  const ElementField& description = kElementFields[field];
  host_->faults.OnElementField(description.member, HostFaults::Moment::kPut);
  const Variant converted = description.is_number ? Variant(value.ToInt()) : Variant(value.ToText());
  if (!(row_.fields[field] == converted)) changed_.set(field);
  row_.fields[field] = converted;
}

Variant ElementObject::Save(const Args&) {
  for (std::size_t i = 0; i < kElementFields.size(); ++i)
    if (changed_[i]) host_->faults.OnElementField(kElementFields[i].member, HostFaults::Moment::kSave);
  SaveElement(host_->model, row_);
  host_->counters.CountWrite();
  changed_.reset();
  return {};
}

Variant ElementObject::TaggedValues() {
  if (row_.id == 0) RefuseByHost(u"An element has tagged values only once it is saved");
  return std::make_shared<TaggedValueCollection>(host_, row_.id)->AsObject();
}

Object ElementById(const HostPtr& host, std::int32_t id) {
  std::optional<ElementRow> row = FindElement(host->model, id);
  if (!row) RefuseByHost(u"Element " + ToText(id) + u" does not exist");
  return std::make_shared<ElementObject>(host, std::move(*row))->AsObject();
}

}  // namespace kestrune::standins
