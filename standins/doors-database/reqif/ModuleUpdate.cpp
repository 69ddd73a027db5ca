#include "standins/doors-database/reqif/ModuleUpdate.h"

#include <map>

#include "standins/doors-database/reqif/ObjectMatch.h"

namespace kestrune::standins {

namespace {

const char16_t* NameOf(TablePart part) {
  switch (part) {
    case TablePart::kTable:
      return u"table";
    case TablePart::kRow:
      return u"row";
    case TablePart::kCell:
      return u"cell";
    case TablePart::kNone:
      break;
  }
  return u"none";
}

class Update {
 public:
  Update(DoorsDatabase& database, ItemId folder, const ExchangeModule& module)
      : database_(database), sql_(database.Sql()), module_(module), id_(ModuleIn(folder)) {}

  LoadedModule Run() {
    const auto attributes = WriteAttributes();
    WriteModuleValues(attributes);
    ObjectMatch match = MatchObjects(sql_, id_, module_.objects);
    WriteObjects(match);
    WriteValues(match, attributes);
    RemoveObjects(match);
    result_.path = database_.FullName(id_);
    result_.warnings = module_.warnings;
    return std::move(result_);
  }

 private:
  ItemId ModuleIn(ItemId folder) {
    auto found = database_.FindChild(folder, module_.name);
    if (found && found->type != u"Formal") {
      throw AutomationError(error::kFileFailure, u"LoadReqif",
                            u"\"" + module_.name + u"\" is there already and is no formal module");
    }
    if (!found) {
      sql_.Prepare("INSERT INTO item (parent, type, name) VALUES (?, 'Formal', ?)", folder, module_.name)
          .Run();
      found = database_.Find(sql_.LastInsertId());
    }
    sql_.Prepare("UPDATE item SET prefix = ?, description = ?, deleted = 0 WHERE id = ?", module_.prefix,
                 module_.description, found->id)
        .Run();
    return found->id;
  }

  /// Gives the database's ids of the file's attributes. DOORS' own keep their definition and
  /// their place in front.
  std::vector<std::int64_t> WriteAttributes() {
    std::vector<std::int64_t> ids;
    for (const ExchangeAttribute& attribute : module_.attributes) {
      const auto position = static_cast<std::int64_t>(ids.size());
      Statement row = sql_.Prepare(
          "INSERT INTO attribute (module, position, name, type, on_object, on_module, system, multi) "
          "VALUES (?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (module, name) DO UPDATE SET "
          "position = iif(position < 0, position, excluded.position), "
          "type = iif(position < 0, type, excluded.type), on_object = on_object OR excluded.on_object, "
          "on_module = on_module OR excluded.on_module, system = system OR excluded.system, "
          "multi = multi OR excluded.multi RETURNING id",
          id_, position, attribute.name, attribute.type, attribute.on_object, attribute.on_module,
          attribute.system, attribute.multi);
      row.Step();
      ids.push_back(row.Int64(0));
    }
    return ids;
  }

  void WriteModuleValues(const std::vector<std::int64_t>& attributes) {
    sql_.Prepare("DELETE FROM module_value WHERE attribute IN (SELECT id FROM attribute WHERE module = ?)",
                 id_)
        .Run();
    for (const ExchangeValue& value : module_.values) {
      sql_.Prepare("INSERT OR REPLACE INTO module_value (attribute, text) VALUES (?, ?)",
                   attributes[value.attribute], value.text)
          .Run();
    }
  }

  /// A parent stands before its children in the file, so that its id is known when they are written.
  void WriteObjects(ObjectMatch& match) {
    std::map<int, int> children;  // by parent: how many were written
    result_.objects = static_cast<int>(module_.objects.size());
    for (std::size_t i = 0; i < module_.objects.size(); ++i) {
      const ExchangeObject& object = module_.objects[i];
      const std::int64_t parent =
          object.parent < 0 ? 0 : match.objects[static_cast<std::size_t>(object.parent)].id;
      WriteObject(object, match.objects[i], parent, ++children[object.parent]);
    }
  }

  void WriteObject(const ExchangeObject& object, MatchedObject& matched, std::int64_t parent, int position) {
    if (!matched.id) {
      sql_.Prepare(
              "INSERT INTO object (module, absolute_number, parent, position, deleted, table_part, origin) "
              "VALUES (?, ?, nullif(?, 0), ?, ?, ?, ?)",
              id_, matched.absolute_number, parent, position, object.deleted, NameOf(object.part),
              object.origin)
          .Run();
      matched.id = sql_.LastInsertId();
      ++result_.added;
      return;
    }
    if (matched.was_deleted && !object.deleted) ++result_.restored;
    sql_.Prepare(
            "UPDATE object SET parent = nullif(?, 0), position = ?, deleted = ?, table_part = ?, origin = ? "
            "WHERE id = ?",
            parent, position, object.deleted, NameOf(object.part), object.origin, matched.id)
        .Run();
    sql_.Prepare("DELETE FROM value WHERE object = ?", matched.id).Run();
  }

  void WriteValues(const ObjectMatch& match, const std::vector<std::int64_t>& attributes) {
    for (std::size_t i = 0; i < module_.objects.size(); ++i) {
      for (const ExchangeValue& value : module_.objects[i].values) {
        Statement row =
            sql_.Prepare("INSERT OR REPLACE INTO value (object, attribute, text, rich) VALUES (?, ?, ?, ?)",
                         match.objects[i].id, attributes[value.attribute], value.text);
        if (!value.rich.empty()) row.BindAt(4, value.rich);
        row.Run();
      }
    }
  }

  void RemoveObjects(const ObjectMatch& match) {
    for (const std::int64_t id : match.not_in_file)
      sql_.Prepare("UPDATE object SET deleted = 1 WHERE id = ?", id).Run();
    result_.removed = static_cast<int>(match.not_in_file.size());
  }

  DoorsDatabase& database_;
  Database& sql_;
  const ExchangeModule& module_;
  ItemId id_;
  LoadedModule result_;
};

}  // namespace

LoadedModule UpdateModule(DoorsDatabase& database, ItemId folder, const ExchangeModule& module) {
  return Update(database, folder, module).Run();
}

}  // namespace kestrune::standins
