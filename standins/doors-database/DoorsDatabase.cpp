#include "standins/doors-database/DoorsDatabase.h"

#include <algorithm>

#include "platform/Files.h"
#include "standins/doors-database/DoorsSchema.h"

namespace kestrune::standins {

namespace {

constexpr const char* kItem =
    "SELECT id, ifnull(parent, 0), type, name, description, prefix, deleted, readable FROM item ";
constexpr int kDeepest = 1000;  // folders in folders; more means that they form a circle
constexpr TextView kNoDatabase = u"file is not a database";  // SQLite's words

std::string ItemsWhere(const char* rest) {
  return std::string(kItem) + rest;
}

}  // namespace

DoorsDatabase::DoorsDatabase(const std::filesystem::path& path, Origin origin)
    : database_(origin == kNew ? Database::Create(path) : Database::Open(path)) {
  if (origin == kNew) {
    MakeTables();
  } else if (!HasOurTables(path)) {
    throw AutomationError(error::kFileFailure, u"DoorsDatabase",
                          FromPath(path) + u": the file is no database of the DOORS stand-in");
  }
  database_.Exec("PRAGMA foreign_keys = ON");
}

void DoorsDatabase::MakeTables() {
  database_.Exec("PRAGMA encoding = 'UTF-8'");  // so that a shell shows and takes plain text
  Transaction transaction(database_);
  database_.Exec(kDoorsSchema);
  database_.Exec(("PRAGMA application_id = " + std::to_string(kDoorsApplicationId)).c_str());
  SetVersion();
  transaction.Commit();
}

void DoorsDatabase::Upgrade() {
  Transaction transaction(database_);
  database_.Exec(kDoorsSchemaFrom1);
  SetVersion();
  transaction.Commit();
}

void DoorsDatabase::SetVersion() {
  database_.Exec(("PRAGMA user_version = " + std::to_string(kDoorsSchemaVersion)).c_str());
}

bool DoorsDatabase::HasOurTables(const std::filesystem::path& path) try {
  const auto pragma = [this](const char* sql) {
    Statement statement = database_.PrepareOnce(sql);
    return statement.Step() ? statement.Int(0) : 0;
  };
  if (pragma("PRAGMA application_id") != kDoorsApplicationId) return false;
  if (pragma("PRAGMA user_version") == 1) Upgrade();
  return pragma("PRAGMA user_version") == kDoorsSchemaVersion;
} catch (const FileBlocked&) {
  throw;
} catch (const AutomationError& failure) {
  if (failure.Description == kNoDatabase) return false;
  throw AutomationError(failure.Number, failure.Source, FromPath(path) + u": " + failure.Description);
}

std::vector<Item> DoorsDatabase::Select(Statement row) {
  std::vector<Item> items;
  while (row.Step()) {
    items.push_back({row.Int64(0), row.Int64(1), row.GetText(2), row.GetText(3), row.GetText(4),
                     row.GetText(5), row.Int(6) != 0, row.Int(7) != 0});
  }
  return items;
}

std::optional<Item> DoorsDatabase::Find(ItemId id) {
  auto found = Select(database_.Prepare(ItemsWhere("WHERE id = ?"), id));
  if (found.empty()) return std::nullopt;
  return std::move(found.front());
}

std::optional<Item> DoorsDatabase::FindChild(ItemId parent, TextView name) {
  auto found = Select(database_.Prepare(ItemsWhere("WHERE parent = ? AND name = ?"), parent, name));
  if (found.empty()) return std::nullopt;
  return std::move(found.front());
}

std::optional<Item> DoorsDatabase::FindPath(TextView path) {
  auto item = Find(kRoot);
  bool is_first = true;
  for (const Text& name : Split(path, u"/")) {
    if (name.empty()) continue;
    auto next = FindChild(item->id, name);
    if (!next && is_first) {  // names of projects are unique, so that a nested one can stand in front
      const auto projects = Projects();
      const auto named = std::ranges::find(projects, name, &Item::name);
      if (named != projects.end()) next = *named;
    }
    if (!next) return std::nullopt;
    item = std::move(next);
    is_first = false;
  }
  return item;
}

std::vector<Item> DoorsDatabase::Children(ItemId parent) {
  return Select(database_.Prepare(ItemsWhere("WHERE parent = ? ORDER BY name"), parent));
}

std::vector<Item> DoorsDatabase::Below(ItemId parent) {
  std::vector<Item> below;
  std::vector<Item> waiting = Children(parent);
  std::ranges::reverse(waiting);
  while (!waiting.empty()) {
    below.push_back(std::move(waiting.back()));
    waiting.pop_back();
    const auto children = Children(below.back().id);
    waiting.insert(waiting.end(), children.rbegin(), children.rend());
  }
  return below;
}

std::vector<Item> DoorsDatabase::Projects() {
  return Select(database_.Prepare(ItemsWhere("WHERE type = 'Project' ORDER BY name")));
}

std::vector<Item> DoorsDatabase::Modules() {
  auto items = Below(kRoot);
  std::erase_if(items, [](const Item& item) { return !item.IsModule(); });
  return items;
}

Text DoorsDatabase::FullName(ItemId id) {
  Text path;
  for (int depth = 0; depth < kDeepest; ++depth) {
    const auto item = Find(id);
    if (!item || item->id == kRoot) return path.empty() ? Text(u"/") : path;
    path = u"/" + item->name + path;
    if (item->type == u"Project") return path;
    id = item->parent;
  }
  throw AutomationError(error::kFileFailure, u"DoorsDatabase",
                        u"The folders above item " + ToText(id) + u" form a circle");
}

std::vector<Text> DoorsDatabase::Views(ItemId module) {
  Statement row = database_.Prepare("SELECT name FROM view WHERE module = ? ORDER BY id", module);
  std::vector<Text> names;
  while (row.Step()) names.push_back(row.GetText(0));
  return names;
}

}  // namespace kestrune::standins
