#include "standins/doors-database/LoadReqif.h"

#include <algorithm>

#include "platform/Files.h"
#include "standins/doors-database/reqif/ExchangeFile.h"
#include "standins/doors-database/reqif/ModuleUpdate.h"
#include "standins/doors-database/reqif/ReqifReader.h"

namespace kestrune::standins {

namespace {

[[noreturn]] void RefuseFolder(const Item& item, TextView why) {
  throw AutomationError(error::kFileFailure, u"LoadReqif",
                        Text(u"\"").append(item.name).append(u"\" ").append(why));
}

Item FolderFor(DoorsDatabase& database, ItemId parent, const Text& name) {
  if (const auto found = database.FindChild(parent, name)) {
    if (found->IsModule()) RefuseFolder(*found, u"is a module, not a folder");
    if (found->deleted) RefuseFolder(*found, u"is deleted");
    return *found;
  }
  const auto* type = parent == DoorsDatabase::kRoot ? u"Project" : u"Folder";
  database.Sql().Prepare("INSERT INTO item (parent, type, name) VALUES (?, ?, ?)", parent, type, name).Run();
  return *database.Find(database.Sql().LastInsertId());
}

ItemId FolderAt(DoorsDatabase& database, TextView path) {
  ItemId folder = DoorsDatabase::kRoot;
  for (const Text& name : Split(path, u"/"))
    if (!name.empty()) folder = FolderFor(database, folder, name).id;
  if (folder == DoorsDatabase::kRoot)
    throw AutomationError(error::kFileFailure, u"LoadReqif", u"The path of a project is missing");
  return folder;
}

/// The project for a file that nobody gave a place.
Text DefaultFolder(const Exchange& exchange, const Text& file) {
  Text name(Trim(exchange.title));
  if (name.empty()) name = FromPath(ToPath(file).stem());
  std::ranges::replace(name, u'/', u'-');
  return name;
}

}  // namespace

std::vector<LoadedModule> LoadReqif(DoorsDatabase& database, const Text& file, TextView folder) {
  std::vector<LoadedModule> loaded;
  Transaction transaction(database.Sql());
  ForEachReqifDocument(file, [&](const std::string& xml, const Text& name) {
    const Exchange exchange = ReadReqif(xml, name);
    const Text place = folder.empty() ? DefaultFolder(exchange, file) : Text(folder);
    const ItemId parent = FolderAt(database, place);
    for (const ExchangeModule& module : exchange.modules)
      loaded.push_back(UpdateModule(database, parent, module));
  });
  transaction.Commit();
  return loaded;
}

}  // namespace kestrune::standins
