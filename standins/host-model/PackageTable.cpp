#include "standins/host-model/PackageTable.h"

#include "standins/host-model/ElementTable.h"

namespace kestrune::standins {

namespace {

std::optional<PackageRow> ReadRow(Statement found) {
  if (!found.Step()) return std::nullopt;
  return PackageRow{.Id = found.Int(0),
                    .ParentId = found.Int(1),
                    .ElementId = found.Int(2),
                    .Guid = found.GetText(3),
                    .Name = found.GetText(4),
                    .Flags = found.GetText(5)};
}

void Insert(Database& model, PackageRow& row) {
  ElementRow own{.Id = 0, .Type = kPackageType, .Guid = row.Guid, .Locked = false, .Fields = {}};
  own.Fields[kNameField] = row.Name;
  own.Fields[kPackageField] = row.ParentId;
  own.Fields[kParentField] = 0;
  own.Fields[kTreePosField] = 0;
  SaveElement(model, own);
  model
      .Prepare("INSERT INTO t_package (Parent_ID, Element_ID, Guid, Name, Flags) VALUES (?, ?, ?, ?, ?)",
               row.ParentId, own.Id, row.Guid, row.Name, row.Flags)
      .Run();
  row.ElementId = own.Id;
  row.Id = static_cast<std::int32_t>(model.LastInsertId());
}

void Update(Database& model, const PackageRow& row) {
  RefuseLongName(row.Name);
  RefuseUnlessOpen(model, row.ElementId);
  model.Prepare("UPDATE t_object SET Name = ? WHERE Object_ID = ?", row.Name, row.ElementId).Run();
  model.Prepare("UPDATE t_package SET Name = ?, Flags = ? WHERE Package_ID = ?", row.Name, row.Flags, row.Id)
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
  if (saved.Id == 0)
    Insert(model, saved);
  else
    Update(model, saved);
  transaction.Commit();
  row = std::move(saved);
}

}  // namespace kestrune::standins
