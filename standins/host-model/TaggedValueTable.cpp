#include "standins/host-model/TaggedValueTable.h"

#include "standins/host-model/ElementTable.h"
#include "standins/host-model/Host.h"

namespace kestrune::standins {

namespace {

/// Runs a statement that must meet exactly the row of one tagged value.
void RunOnRow(Database& model, Statement statement, const TaggedValueRow& row) {
  statement.Run();
  if (model.Changes() == 0) RefuseByHost(u"The tagged value \"" + row.Name + u"\" no longer exists");
}

}  // namespace

std::optional<TaggedValueRow> FindTaggedValue(Database& model, std::int32_t id) {
  Statement found = model.Prepare(
      "SELECT PropertyID, Object_ID, Property, Value, Notes FROM t_objectproperties WHERE PropertyID = ?",
      id);
  if (!found.Step()) return std::nullopt;
  return TaggedValueRow{.Id = found.Int(0),
                        .ElementId = found.Int(1),
                        .Name = found.GetText(2),
                        .Value = found.GetText(3),
                        .Notes = found.GetText(4)};
}

void SaveTaggedValue(Database& model, TaggedValueRow& row) {
  if (row.Value.size() > kMaxTaggedValueLength)
    RefuseByHost(u"The value of the tagged value \"" + row.Name + u"\" is longer than 255 characters");
  RefuseUnlessOpen(model, row.ElementId);
  if (row.Id == 0) {
    model
        .Prepare("INSERT INTO t_objectproperties (Object_ID, Property, Value, Notes) VALUES (?, ?, ?, ?)",
                 row.ElementId, row.Name, row.Value, row.Notes)
        .Run();
    row.Id = static_cast<std::int32_t>(model.LastInsertId());
    return;
  }
  RunOnRow(
      model,
      model.Prepare("UPDATE t_objectproperties SET Property = ?, Value = ?, Notes = ? WHERE PropertyID = ?",
                    row.Name, row.Value, row.Notes, row.Id),
      row);
}

void DeleteTaggedValue(Database& model, const TaggedValueRow& row) {
  RefuseUnlessOpen(model, row.ElementId);
  RunOnRow(model, model.Prepare("DELETE FROM t_objectproperties WHERE PropertyID = ?", row.Id), row);
}

}  // namespace kestrune::standins
