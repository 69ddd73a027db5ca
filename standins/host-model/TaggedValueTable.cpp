#include "standins/host-model/TaggedValueTable.h"

#include "standins/host-model/ElementTable.h"
#include "standins/host-model/Host.h"

namespace kestrune::standins {

namespace {

/// Runs a statement that must meet exactly the row of one tagged value.
void RunOnRow(Database& model, Statement statement, const TaggedValueRow& row) {
  statement.Run();
  if (model.Changes() == 0) RefuseByHost(u"The tagged value \"" + row.name + u"\" no longer exists");
}

}  // namespace

std::optional<TaggedValueRow> FindTaggedValue(Database& model, std::int32_t id) {
  Statement found = model.Prepare(
      "SELECT PropertyID, Object_ID, Property, Value, Notes FROM t_objectproperties WHERE PropertyID = ?",
      id);
  if (!found.Step()) return std::nullopt;
  return TaggedValueRow{.id = found.Int(0),
                        .element_id = found.Int(1),
                        .name = found.GetText(2),
                        .value = found.GetText(3),
                        .notes = found.GetText(4)};
}

void SaveTaggedValue(Database& model, TaggedValueRow& row) {
  if (row.value.size() > kMaxTaggedValueLength)
    RefuseByHost(u"The value of the tagged value \"" + row.name + u"\" is longer than 255 characters");
  RefuseUnlessOpen(model, row.element_id);
  if (row.id == 0) {
    model
        .Prepare("INSERT INTO t_objectproperties (Object_ID, Property, Value, Notes) VALUES (?, ?, ?, ?)",
                 row.element_id, row.name, row.value, row.notes)
        .Run();
    row.id = static_cast<std::int32_t>(model.LastInsertId());
    return;
  }
  RunOnRow(
      model,
      model.Prepare("UPDATE t_objectproperties SET Property = ?, Value = ?, Notes = ? WHERE PropertyID = ?",
                    row.name, row.value, row.notes, row.id),
      row);
}

void DeleteTaggedValue(Database& model, const TaggedValueRow& row) {
  RefuseUnlessOpen(model, row.element_id);
  RunOnRow(model, model.Prepare("DELETE FROM t_objectproperties WHERE PropertyID = ?", row.id), row);
}

}  // namespace kestrune::standins
