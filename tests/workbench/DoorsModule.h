// A formal module in a simulated DOORS database, made and edited by a test as a user of DOORS would.
#pragma once

#include "standins/doors-database/DoorsDatabase.h"

namespace kestrune::testing {

/// Objects are named by their absolute number, 0 stands for the top level. Whoever has the module open goes
/// on seeing what it was.
class DoorsModule {
 public:
  struct Condition {
    Text attribute;
    Text op;  // "equals", "not equals", "contains"
    Text value;
  };

  /// Makes the module in the project "P", and the project where it is missing.
  DoorsModule(standins::DoorsDatabase& database, const Text& name, const Text& prefix = u"R")
      : sql_(database.Sql()), path_(u"/P/" + name) {
    if (!database.FindPath(u"/P"))
      sql_.Prepare("INSERT INTO item (parent, type, name) VALUES (1, 'Project', 'P')").Run();
    const standins::ItemId project = database.FindPath(u"/P")->id;
    sql_.Prepare("INSERT INTO item (parent, type, name, prefix) VALUES (?, 'Formal', ?, ?)", project, name,
                 prefix)
        .Run();
    id_ = sql_.LastInsertId();
  }

  const Text& Path() const { return path_; }

  void AddAttribute(const Text& name, const Text& type = u"String") {
    Run("INSERT INTO attribute (module, position, name, type) SELECT ?1, max(position) + 1, ?2, ?3"
        " FROM attribute WHERE module = ?1",
        name, type);
  }

  /// `part` is "none", "table", "row" or "cell".
  void AddObject(int number, int parent, int position, const Text& part = u"none") {
    Run("INSERT INTO object (module, absolute_number, position, table_part) VALUES (?1, ?2, 0, ?3)", number,
        part);
    Place(number, parent, position);
  }
  void Place(int number, int parent, int position) {
    Run("UPDATE object SET position = ?4, parent ="
        " (SELECT id FROM object WHERE module = ?1 AND absolute_number = ?3)"
        " WHERE module = ?1 AND absolute_number = ?2",
        number, parent, position);
  }
  void SetDeleted(int number, bool deleted) {
    Run("UPDATE object SET deleted = ?3 WHERE module = ?1 AND absolute_number = ?2", number, deleted);
  }
  void SetReadable(int number, bool readable) {
    Run("UPDATE object SET readable = ?3 WHERE module = ?1 AND absolute_number = ?2", number, readable);
  }
  void SetAttributeReadable(const Text& attribute, bool readable) {
    Run("UPDATE attribute SET readable = ?3 WHERE module = ?1 AND name = ?2", attribute, readable);
  }

  /// "" takes the value away.
  void Set(int number, const Text& attribute, const Text& value) {
    Run("DELETE FROM value WHERE object = (SELECT id FROM object WHERE module = ?1 AND absolute_number = ?2)"
        " AND attribute = (SELECT id FROM attribute WHERE module = ?1 AND name = ?3)",
        number, attribute);
    if (value.empty()) return;
    Run("INSERT INTO value (object, attribute, text)"
        " SELECT o.id, a.id, ?4 FROM object o, attribute a WHERE o.module = ?1 AND o.absolute_number = ?2"
        " AND a.module = ?1 AND a.name = ?3",
        number, attribute, value);
    if (sql_.Changes() != 1) throw std::logic_error("no such object or attribute: " + ToUtf8(attribute));
  }

  void AddView(const Text& name, const std::vector<Condition>& conditions, bool loadable = true) {
    Run("INSERT INTO view (module, name, loadable) VALUES (?1, ?2, ?3)", name, loadable);
    const std::int64_t view = sql_.LastInsertId();
    for (const auto& [attribute, op, value] : conditions)
      sql_.Prepare("INSERT INTO view_filter VALUES (?, ?, ?, ?)", view, attribute, op, value).Run();
  }

 private:
  /// ?1 is the module.
  template <typename... Values>
  void Run(const char* sql, const Values&... values) {
    sql_.Prepare(sql, id_, values...).Run();
  }

  standins::Database& sql_;
  standins::ItemId id_ = 0;
  Text path_;
};

}  // namespace kestrune::testing
