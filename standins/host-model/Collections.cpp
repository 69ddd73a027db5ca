#include "standins/host-model/Collections.h"

#include "standins/host-model/ElementObject.h"
#include "standins/host-model/ElementTable.h"
#include "standins/host-model/Guid.h"
#include "standins/host-model/PackageObject.h"
#include "standins/host-model/TaggedValueObject.h"

namespace kestrune::standins {

namespace {

std::vector<std::int32_t> AllOf(Statement rows) {
  std::vector<std::int32_t> ids;
  while (rows.Step()) ids.push_back(rows.Int(0));
  return ids;
}

std::optional<std::int32_t> FirstOf(Statement rows) {
  if (!rows.Step()) return std::nullopt;
  return rows.Int(0);
}

}  // namespace

std::vector<std::int32_t> PackageCollection::List() {
  return AllOf(
      host_->model.Prepare("SELECT Package_ID FROM t_package WHERE Parent_ID = ? ORDER BY 1", owner_id_));
}

std::optional<std::int32_t> PackageCollection::Find(const Text& name) {
  return FirstOf(host_->model.Prepare(
      "SELECT Package_ID FROM t_package WHERE Parent_ID = ? AND Name = ? ORDER BY 1", owner_id_, name));
}

Object PackageCollection::Item(std::int32_t id) {
  return PackageById(host_, id);
}

Object PackageCollection::AddNew(Text name, const Variant& type) {
  const Text type_name = type.ToText();
  if (!type_name.empty() && type_name != kPackageType)
    RefuseByHost(u"There are no packages of type " + type_name);
  PackageRow row;
  row.parent_id = owner_id_;
  row.guid = NewGuid();
  row.name = std::move(name);
  return std::make_shared<PackageObject>(host_, std::move(row))->AsObject();
}

void PackageCollection::Delete(std::int32_t) {
  RefuseByHost(u"The deletion of packages is not supported by this stand-in");
}

std::vector<std::int32_t> ElementCollection::List() {
  return AllOf(
      host_->model.Prepare("SELECT Object_ID FROM t_object WHERE Package_ID = ? AND Object_Type <> 'Package'"
                           " ORDER BY TPos, Object_ID",
                           owner_id_));
}

std::optional<std::int32_t> ElementCollection::Find(const Text& name) {
  return FirstOf(host_->model.Prepare(
      "SELECT Object_ID FROM t_object WHERE Package_ID = ? AND Name = ? AND Object_Type <> 'Package'"
      " ORDER BY TPos, Object_ID",
      owner_id_, name));
}

Object ElementCollection::Item(std::int32_t id) {
  return ElementById(host_, id);
}

Object ElementCollection::AddNew(Text name, const Variant& type) {
  ElementRow row;
  row.type = type.ToText();
  if (row.type.empty() || row.type == kPackageType)
    RefuseByHost(u"There are no elements of type \"" + row.type + u"\"");
  row.guid = NewGuid();
  row.fields[kNameField] = std::move(name);
  row.fields[kPackageField] = owner_id_;
  row.fields[kParentField] = 0;
  row.fields[kTreePosField] = 0;
  return std::make_shared<ElementObject>(host_, std::move(row))->AsObject();
}

void ElementCollection::Delete(std::int32_t id) {
  DeleteElement(host_->model, id);
  host_->counters.CountWrite();
}

std::vector<std::int32_t> TaggedValueCollection::List() {
  return AllOf(host_->model.Prepare(
      "SELECT PropertyID FROM t_objectproperties WHERE Object_ID = ? ORDER BY 1", owner_id_));
}

std::optional<std::int32_t> TaggedValueCollection::Find(const Text& name) {
  return FirstOf(host_->model.Prepare(
      "SELECT PropertyID FROM t_objectproperties WHERE Object_ID = ? AND Property = ? ORDER BY 1", owner_id_,
      name));
}

Object TaggedValueCollection::Item(std::int32_t id) {
  std::optional<TaggedValueRow> row = FindTaggedValue(host_->model, id);
  if (!row) RefuseByHost(u"The tagged value is deleted");
  return std::make_shared<TaggedValueObject>(host_, std::move(*row))->AsObject();
}

Object TaggedValueCollection::AddNew(Text name, const Variant& value) {
  host_->faults.OnTaggedValue(name, HostFaults::Moment::kPut);
  TaggedValueRow row;
  row.element_id = owner_id_;
  row.name = std::move(name);
  row.value = value.ToText();
  return std::make_shared<TaggedValueObject>(host_, std::move(row))->AsObject();
}

void TaggedValueCollection::Delete(std::int32_t id) {
  const std::optional<TaggedValueRow> row = FindTaggedValue(host_->model, id);
  if (!row) RefuseByHost(u"The tagged value is deleted");
  DeleteTaggedValue(host_->model, *row);
  host_->counters.CountWrite();
}

}  // namespace kestrune::standins
