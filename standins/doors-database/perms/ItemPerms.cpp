#include <algorithm>

#include "standins/doors-database/perms/Handles.h"
#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

namespace {

using dxl::Call;
using dxl::Value;

constexpr std::size_t kIdDigits = 8;

dxl::Next Walk(const DoorsSession& session, std::vector<ItemId> ids) {
  return [ids = std::move(ids), next = std::size_t{0}, walk = session.NewWalk()](Value& value) mutable {
    if (next == ids.size()) return false;
    value = dxl::NewHandle(ItemHandle{ids[next++]});
    return true;
  };
}

std::vector<ItemId> IdsOf(const std::vector<Item>& items, bool with_deleted) {
  std::vector<ItemId> ids;
  for (const Item& item : items)
    if (item.readable && (with_deleted || !item.deleted)) ids.push_back(item.id);
  return ids;
}

bool IsFolder(const Item& item) {
  return !item.IsModule();
}
bool IsProject(const Item& item) {
  return item.type == u"Project";
}
bool IsAny(const Item&) {
  return true;
}

Value HandleIf(const std::optional<Item>& item, bool (*is_wanted)(const Item&)) {
  if (!item || !item->readable || !is_wanted(*item)) return Value(std::shared_ptr<ItemHandle>());
  return dxl::NewHandle(ItemHandle{item->id});
}

/// The path of what an item lies in; "" for the root, which lies in nothing.
Text FolderPath(DoorsSession& session, const Item& item) {
  return item.parent ? session.Database().FullName(item.parent) : Text();
}

/// The questions that Items, Folders and Projects answer alike.
void AddQuestions(PermTable& table, const Text& type) {
  DoorsSession& session = table.session;
  const Text argument = u"(" + type + u")";
  table.Add(u"string name" + argument, [&](Call& call) { return Value(ItemOf(session, call, 0).name); });
  table.Add(u"string description" + argument,
            [&](Call& call) { return Value(ItemOf(session, call, 0).description); });
  table.Add(u"string path" + argument,
            [&](Call& call) { return Value(FolderPath(session, ItemOf(session, call, 0))); });
  table.Add(u"string fullName" + argument,
            [&](Call& call) { return Value(session.Database().FullName(call.As<ItemHandle>(0).id)); });
  table.Add(u"bool isDeleted" + argument, [&](Call& call) {
    const auto item = session.Database().Find(call.As<ItemHandle>(0).id);
    return Value(!item || item->deleted || !item->readable);
  });
  table.Add(u"string uniqueID" + argument, [](Call& call) {
    const Text digits = ToText(call.As<ItemHandle>(0).id);
    return Value(Text(kIdDigits - std::min(kIdDigits, digits.size()), u'0') + digits);
  });
}

void AddDatabaseLoops(PermTable& table) {
  DoorsSession& session = table.session;
  table.AddLoop(u"for Project in database",
                [&](Call&) { return Walk(session, IdsOf(session.Database().Projects(), false)); });
  table.AddLoop(u"for string in database", [&](Call&) -> dxl::Next {
    return [projects = session.Database().Projects(), next = std::size_t{0}](Value& value) mutable {
      if (next == projects.size()) return false;
      value = Value(projects[next++].name);
      return true;
    };
  });
}

}  // namespace

void AddItemPerms(PermTable& table) {
  DoorsSession& session = table.session;
  const auto at_path = [&session](Call& call) { return session.Database().FindPath(call.String(0)); };
  const auto behind = [&session](Call& call) { return session.Database().Find(call.As<ItemHandle>(0).id); };
  table.Add(u"Item item(string)", [=](Call& call) { return HandleIf(at_path(call), IsAny); });
  table.Add(u"Folder folder(string)", [=](Call& call) { return HandleIf(at_path(call), IsFolder); });
  table.Add(u"Folder folder(Item)", [=](Call& call) { return HandleIf(behind(call), IsFolder); });
  table.Add(u"Project project(string)", [=](Call& call) { return HandleIf(at_path(call), IsProject); });
  table.Add(u"Project project(Item)", [=](Call& call) { return HandleIf(behind(call), IsProject); });
  table.Add(u"Item itemFromID(string)", [&](Call& call) {
    return HandleIf(session.Database().Find(static_cast<ItemId>(NumericValue(call.String(0)))), IsAny);
  });
  for (const auto* type : {u"Item", u"Folder", u"Project"}) AddQuestions(table, type);
  for (const auto* type : {u"Item", u"Folder"})
    table.Add(Text(u"string type(").append(type).append(u")"),
              [&](Call& call) { return Value(ItemOf(session, call, 0).type); });

  table.AddLoop(u"for Item in Folder", [&](Call& call) {
    return Walk(session, IdsOf(session.Database().Children(call.As<ItemHandle>(0).id), false));
  });
  table.AddLoop(u"for Item in all Folder", [&](Call& call) {
    return Walk(session, IdsOf(session.Database().Children(call.As<ItemHandle>(0).id), true));
  });
  table.AddLoop(u"for Item in Project", [&](Call& call) {
    return Walk(session, IdsOf(session.Database().Below(call.As<ItemHandle>(0).id), false));
  });
  AddDatabaseLoops(table);
}

}  // namespace kestrune::standins
