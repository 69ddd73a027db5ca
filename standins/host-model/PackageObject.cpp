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
      {u"PackageID", {.Get = [](Self& self) { return Variant(self.row_.Id); }}},
      {u"PackageGuid", {.Get = [](Self& self) { return Variant(self.row_.Guid); }}},
      {u"Name",
       {.Get = [](Self& self) { return Variant(self.row_.Name); },
        .Put = [](Self& self, const Variant& value) { self.row_.Name = value.ToText(); }}},
      {u"Flags",
       {.Get = [](Self& self) { return Variant(self.row_.Flags); },
        .Put = [](Self& self, const Variant& value) { self.row_.Flags = value.ToText(); }}},
      {u"Element", {.Get = &Self::Element}},
      {u"Packages", {.Get = &Self::Children<PackageCollection>}},
      {u"Elements", {.Get = &Self::Children<ElementCollection>}},
      {u"Save", {.Call = &Self::Save}},
  };
  return table;
}

std::int32_t PackageObject::SavedId() const {
  if (row_.Id == 0) RefuseByHost(u"The package \"" + row_.Name + u"\" is not saved yet");
  return row_.Id;
}

Variant PackageObject::Element() {
  SavedId();
  return ElementById(host_, row_.ElementId);
}

template <typename Collection>
Variant PackageObject::Children() {
  return std::make_shared<Collection>(host_, SavedId())->AsObject();
}

Variant PackageObject::Save(const Args&) {
  SavePackage(host_->Model, row_);
  host_->Counters.CountWrite();
  return {};
}

Object PackageById(const HostPtr& host, std::int32_t id) {
  return ObjectOf(host, FindPackage(host->Model, id), u"Package " + ToText(id));
}

Object PackageByGuid(const HostPtr& host, TextView guid) {
  return ObjectOf(host, FindPackageByGuid(host->Model, guid), Text(u"Package ").append(guid));
}

}  // namespace kestrune::standins
