// The items of a simulated DOORS database: projects, folders and modules, found by path. What is inside a
// module is read by ModuleContent.
#pragma once

#include <optional>

#include "standins/sqlite/Database.h"

namespace kestrune::standins {

using ItemId = std::int64_t;

struct Item {
  ItemId id = 0;
  ItemId parent = 0;  // 0 for the root
  Text type;          // "Project", "Folder", "Formal", "Link", "Descriptive"
  Text name;
  Text description;
  Text prefix;
  bool deleted = false;
  bool readable = true;

  bool IsModule() const { return type != u"Project" && type != u"Folder"; }
};

/// Every question is asked of the file anew, so that a change made from outside shows at once.
class DoorsDatabase {
 public:
  static constexpr ItemId kRoot = 1;

  /// Makes a new file with nothing but the root folder; an existing file is refused.
  static DoorsDatabase Create(const std::filesystem::path& path) { return {path, kNew}; }
  /// Opens an existing one; the tables of an older version are brought up to date. Throws AutomationError,
  /// and writes nothing, when there is no file or it is something else.
  static DoorsDatabase Open(const std::filesystem::path& path) { return {path, kExisting}; }

  std::optional<Item> Find(ItemId id);
  /// By path: names with "/" between them, with or without one in front, counted from the root or from a
  /// project of any depth. "/" is the root.
  std::optional<Item> FindPath(TextView path);
  std::optional<Item> FindChild(ItemId parent, TextView name);

  /// What lies directly in a folder or project, deleted items too, by name.
  std::vector<Item> Children(ItemId parent);
  /// Everything below, a folder before its content.
  std::vector<Item> Below(ItemId parent);
  /// All projects, nested and deleted ones too.
  std::vector<Item> Projects();
  std::vector<Item> Modules();

  /// The path counted from the nearest project, or from the root outside projects.
  Text FullName(ItemId id);
  /// Names of the module's views; "Standard view", which every module has, is not among them.
  std::vector<Text> Views(ItemId module);

  Database& Sql() { return database_; }

 private:
  enum Origin { kNew, kExisting };
  DoorsDatabase(const std::filesystem::path& path, Origin origin);
  void MakeTables();
  void Upgrade();
  void SetVersion();
  bool HasOurTables(const std::filesystem::path& path);
  std::vector<Item> Select(Statement statement);

  Database database_;
};

}  // namespace kestrune::standins
