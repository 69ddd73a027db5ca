#include "standins/stage/Colleagues.h"

#include "standins/stage/CommandError.h"

namespace kestrune::standins {

void AddViewTo(DoorsDatabase& database, const Text& module, const Text& name, const Text& attribute,
               const Text& value) {
  const auto item = database.FindPath(module);
  if (!item || !item->IsModule()) throw CommandError(u"DOORS has no module \"" + module + u"\".");
  Database& sql = database.Sql();
  sql.Prepare("DELETE FROM view_filter WHERE view IN (SELECT id FROM view WHERE module = ? AND name = ?)",
              item->id, name)
      .Run();
  sql.Prepare("DELETE FROM view WHERE module = ? AND name = ?", item->id, name).Run();
  sql.Prepare("INSERT INTO view (module, name) VALUES (?, ?)", item->id, name).Run();
  sql.Prepare("INSERT INTO view_filter (view, attribute, operator, value) VALUES (?, ?, 'equals', ?)",
              sql.LastInsertId(), attribute, value)
      .Run();
}

}  // namespace kestrune::standins
