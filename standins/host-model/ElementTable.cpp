#include "standins/host-model/ElementTable.h"

#include "standins/host-model/Host.h"

namespace kestrune::standins {

namespace {

/// What saving has to know of the row that is already there.
struct StoredElement {
  std::int32_t package_id;
  std::int32_t parent_id;
  Text name;
};

Text ElementName(std::int32_t id) {
  return u"Element " + ToText(id);
}

std::string JoinColumns(const char* after_each) {
  std::string joined;
  for (const ElementField& field : kElementFields)
    joined.append(", ").append(field.column).append(after_each);
  return joined;
}

std::string Marks() {
  std::string marks;
  for (std::size_t i = 0; i < kElementFields.size(); ++i) marks += ", ?";
  return marks;
}

Variant FieldOf(const Statement& row, int column, bool is_number) {
  if (row.IsNull(column)) return {};
  if (is_number) return row.Int(column);
  return row.GetText(column);
}

/// The stored row, once it is clear that it may be changed.
StoredElement OpenElement(Database& model, std::int32_t id) {
  Statement row = model.Prepare(
      "SELECT o.Locked, package.Locked, o.Package_ID, o.ParentID, o.Name FROM t_object o"
      " LEFT JOIN t_package p ON p.Package_ID = o.Package_ID"
      " LEFT JOIN t_object package ON package.Object_ID = p.Element_ID WHERE o.Object_ID = ?",
      id);
  if (!row.Step()) RefuseByHost(ElementName(id) + u" does not exist");
  if (row.Int(0)) RefuseByHost(ElementName(id) + u" is locked");
  if (row.Int(1)) RefuseByHost(u"The package of element " + ToText(id) + u" is locked");
  return {row.Int(2), row.Int(3), row.GetText(4)};
}

/// A package is renamed and moved as a package; its element only follows.
void RefuseToBreakPackage(const ElementRow& row, const StoredElement& stored) {
  const bool same = row.fields[kNameField].ToText() == stored.name &&
                    row.fields[kPackageField].ToInt() == stored.package_id;
  if (!same) RefuseByHost(u"The element of a package cannot be renamed or moved without the package");
}

/// Only an element that has children itself can close a circle by getting a parent, so that a tree that is
/// built from the top, however deep, is never walked.
bool ClosesCircle(Database& model, std::int32_t id, std::int32_t parent_id) {
  if (parent_id == id) return true;
  if (!model.Prepare("SELECT 1 FROM t_object WHERE ParentID = ? LIMIT 1", id).Step()) return false;
  return model
      .Prepare(
          "WITH RECURSIVE up(id) AS"
          " (SELECT ? UNION SELECT ParentID FROM t_object, up WHERE Object_ID = up.id)"
          " SELECT 1 FROM up WHERE id = ?",
          parent_id, id)
      .Step();
}

void CheckParent(Database& model, std::int32_t id, std::int32_t parent_id) {
  if (parent_id == 0) return;
  if (!model.Prepare("SELECT 1 FROM t_object WHERE Object_ID = ?", parent_id).Step())
    RefuseByHost(u"The parent element " + ToText(parent_id) + u" does not exist");
  if (id != 0 && ClosesCircle(model, id, parent_id))
    RefuseByHost(ElementName(id) + u" cannot have element " + ToText(parent_id) +
                 u", which lies below it, as its parent");
}

void CheckRow(Database& model, const ElementRow& row) {
  RefuseLongName(row.fields[kNameField].ToText());
  StoredElement stored = {};
  if (row.id != 0) {
    stored = OpenElement(model, row.id);
    if (row.type == kPackageType) RefuseToBreakPackage(row, stored);
  }
  const std::int32_t package_id = row.fields[kPackageField].ToInt();
  const std::int32_t parent_id = row.fields[kParentField].ToInt();
  const bool is_root_package = row.type == kPackageType && package_id == 0;
  const bool moves = row.id == 0 || package_id != stored.package_id;
  if (moves && !is_root_package) RefuseUnlessPackageOpen(model, package_id);
  if (parent_id != stored.parent_id) CheckParent(model, row.id, parent_id);
}

}  // namespace

std::optional<ElementRow> FindElement(Database& model, std::int32_t id) {
  static const std::string sql =
      "SELECT Object_Type, Guid, Locked" + JoinColumns("") + " FROM t_object WHERE Object_ID = ?";
  Statement found = model.Prepare(sql, id);
  if (!found.Step()) return std::nullopt;
  ElementRow row{.id = id,
                 .type = found.GetText(0),
                 .guid = found.GetText(1),
                 .locked = found.Int(2) != 0,
                 .fields = {}};
  for (std::size_t i = 0; i < kElementFields.size(); ++i)
    row.fields[i] = FieldOf(found, static_cast<int>(i) + 3, kElementFields[i].is_number);
  return row;
}

void SaveElement(Database& model, ElementRow& row) {
  static const std::string insert =
      "INSERT INTO t_object (Object_Type, Guid" + JoinColumns("") + ") VALUES (?, ?" + Marks() + ")";
  static const std::string update =
      "UPDATE t_object SET Object_Type = ?, Guid = ?" + JoinColumns(" = ?") + " WHERE Object_ID = ?";
  CheckRow(model, row);
  Statement statement = model.Prepare(row.id == 0 ? insert : update, row.type, row.guid);
  int parameter = 2;
  for (const Variant& field : row.fields) statement.BindAt(++parameter, field);
  if (row.id != 0) statement.BindAt(++parameter, row.id);
  statement.Run();
  if (row.id == 0) row.id = static_cast<std::int32_t>(model.LastInsertId());
}

void DeleteElement(Database& model, std::int32_t id) {
  Transaction transaction(model);
  OpenElement(model, id);
  model.Prepare("DELETE FROM t_objectproperties WHERE Object_ID = ?", id).Run();
  model.Prepare("DELETE FROM t_object WHERE Object_ID = ?", id).Run();
  transaction.Commit();
}

void RefuseUnlessOpen(Database& model, std::int32_t element_id) {
  OpenElement(model, element_id);
}

void RefuseUnlessPackageOpen(Database& model, std::int32_t package_id) {
  Statement lock = model.Prepare(
      "SELECT o.Locked FROM t_package p JOIN t_object o ON o.Object_ID = p.Element_ID WHERE p.Package_ID = ?",
      package_id);
  if (!lock.Step()) RefuseByHost(u"Package " + ToText(package_id) + u" does not exist");
  if (lock.Int(0)) RefuseByHost(u"Package " + ToText(package_id) + u" is locked");
}

void RefuseLongName(const Text& name) {
  if (name.size() > kMaxNameLength)
    RefuseByHost(u"A name of " + ToText(static_cast<long long>(name.size())) + u" characters is too long");
}

}  // namespace kestrune::standins
