#include "standins/host-model/PackageObject.h"

#include "standins/host-model/Collections.h"
#include "standins/host-model/ElementObject.h"

namespace kestrune::standins {

namespace {

Object ObjectOf(const HostPtr& host, std::optional<PackageRow> row, Text what) {
  if (!row) RefuseByHost(std::move(what) + u" does not exist");
  return std::make_shared<PackageObject>(host, std::move(*row))->AsObject();
}

}  // namespace

const PackageObject::Members& PackageObject::Table() {
  using Self = PackageObject;
  static const Members table = {
      {u"PackageID", {.get = [](Self& self) { return Variant(self.row_.id); }}},
      {u"PackageGuid", {.get = [](Self& self) { return Variant(self.row_.guid); }}},
      {u"Name",
       {.get = [](Self& self) { return Variant(self.row_.name); },
        .put = [](Self& self, const Variant& value) { self.row_.name = value.ToText(); }}},
      {u"Flags",
       {.get = [](Self& self) { return Variant(self.row_.flags); },
        .put = [](Self& self, const Variant& value) { self.row_.flags = value.ToText(); }}},
      {u"Element", {.get = &Self::Element}},
      {u"Packages", {.get = &Self::Children<PackageCollection>}},
      {u"Elements", {.get = &Self::Children<ElementCollection>}},
      {u"Save", {.call = &Self::Save}},
  };
  return table;
}

std::int32_t PackageObject::SavedId() const {
  if (row_.id == 0) RefuseByHost(u"The package \"" + row_.name + u"\" is not saved yet");
  return row_.id;
}

Variant PackageObject::Element() {
  SavedId();
  return ElementById(host_, row_.element_id);
}

template <typename Collection>
Variant PackageObject::Children() {
  return std::make_shared<Collection>(host_, SavedId())->AsObject();
}

Variant PackageObject::Save(const Args&) {
  SavePackage(host_->model, row_);
  host_->counters.CountWrite();
  return {};
}

Object PackageById(const HostPtr& host, std::int32_t id) {
  return ObjectOf(host, FindPackage(host->model, id), u"Package " + ToText(id));
}

Object PackageByGuid(const HostPtr& host, TextView guid) {
  return ObjectOf(host, FindPackageByGuid(host->model, guid), Text(u"Package ").append(guid));
}

}  // namespace kestrune::standins
