#include "standins/host-model/PackageTable.h"

#include "standins/host-model/ElementTable.h"

namespace kestrune::standins {

namespace {

std::optional<PackageRow> ReadRow(Statement found) {
  if (!found.Step()) return std::nullopt;
  return PackageRow{.id = found.Int(0),
                    .parent_id = found.Int(1),
                    .element_id = found.Int(2),
                    .guid = found.GetText(3),
                    .name = found.GetText(4),
                    .flags = found.GetText(5)};
}

void Insert(Database& model, PackageRow& row) {
  ElementRow own{.id = 0, .type = kPackageType, .guid = row.guid, .locked = false, .fields = {}};
  own.fields[kNameField] = row.name;
  own.fields[kPackageField] = row.parent_id;
  own.fields[kParentField] = 0;
  own.fields[kTreePosField] = 0;
  SaveElement(model, own);
  model
      .Prepare("INSERT INTO t_package (Parent_ID, Element_ID, Guid, Name, Flags) VALUES (?, ?, ?, ?, ?)",
               row.parent_id, own.id, row.guid, row.name, row.flags)
      .Run();
  row.element_id = own.id;
  row.id = static_cast<std::int32_t>(model.LastInsertId());
}

void Update(Database& model, const PackageRow& row) {
  RefuseLongName(row.name);
  RefuseUnlessOpen(model, row.element_id);
  model.Prepare("UPDATE t_object SET Name = ? WHERE Object_ID = ?", row.name, row.element_id).Run();
  model.Prepare("UPDATE t_package SET Name = ?, Flags = ? WHERE Package_ID = ?", row.name, row.flags, row.id)
      .Run();
}

}  // namespace

std::optional<PackageRow> FindPackage(Database& model, std::int32_t id) {
  return ReadRow(model.Prepare(
      "SELECT Package_ID, Parent_ID, Element_ID, Guid, Name, Flags FROM t_package WHERE Package_ID = ?", id));
}

std::optional<PackageRow> FindPackageByGuid(Database& model, TextView guid) {
  return ReadRow(model.Prepare(
      "SELECT Package_ID, Parent_ID, Element_ID, Guid, Name, Flags FROM t_package WHERE Guid = ?", guid));
}

void SavePackage(Database& model, PackageRow& row) {
  PackageRow saved = row;
  Transaction transaction(model);
  if (saved.id == 0)
    Insert(model, saved);
  else
    Update(model, saved);
  transaction.Commit();
  row = std::move(saved);
}

}  // namespace kestrune::standins
