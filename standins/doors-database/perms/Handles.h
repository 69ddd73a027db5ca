// What the handles of scripts point to, and how perms reach through them. Whatever is dead or gone
// is a run-time error.
#pragma once

#include "standins/doors-database/DoorsSession.h"
#include "standins/dxl/Call.h"
#include "standins/dxl/Error.h"

namespace kestrune::standins {

/// Behind Item, Folder and Project.
struct ItemHandle {
  ItemId id = 0;
};

/// Behind ModName_ (a path), View and AttrName__: what a script calls something that may or may not be there.
struct NameHandle {
  explicit NameHandle(const dxl::Call& call, std::size_t argument) : kept(call.At(argument)) {}
  const Text& Get() const { return kept.AsText(); }

 private:
  dxl::Value kept;  // the script's own text, not a copy of it
};

inline Item ItemOf(DoorsSession& session, dxl::Call& call, std::size_t i) {
  auto item = session.Database().Find(call.As<ItemHandle>(i).id);
  if (!item) throw dxl::ScriptError(u"the item is gone");
  return std::move(*item);
}

/// The readable, undeleted module of a path, as `read` and `exists` find it.
inline std::optional<Item> ModuleItem(DoorsSession& session, TextView path) {
  auto item = session.Database().FindPath(path);
  if (!item || !item->IsModule() || item->deleted || !item->readable) return std::nullopt;
  return item;
}

inline OpenModule& ModuleOf(dxl::Call& call, std::size_t i) {
  auto& module = call.As<OpenModule>(i);
  if (!module.is_open) throw dxl::ScriptError(u"the module " + module.path + u" is closed");
  return module;
}

/// An Object or AttrDef of a module that is still open.
inline PlaceInModule& PlaceOf(dxl::Call& call, std::size_t i) {
  auto& place = call.As<PlaceInModule>(i);
  if (!place.module->is_open) throw dxl::ScriptError(u"the module " + place.module->path + u" is closed");
  return place;
}

inline OpenModule& CurrentModule(DoorsSession& session) {
  if (!session.current_module) throw dxl::ScriptError(u"there is no current module");
  return *session.current_module;
}

}  // namespace kestrune::standins
