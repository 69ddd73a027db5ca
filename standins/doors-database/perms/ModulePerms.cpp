#include "standins/doors-database/perms/Handles.h"
#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

namespace {

using dxl::Call;
using dxl::ScriptError;
using dxl::Value;

constexpr std::size_t kWorkOfAnObject = 1000;  // to read it, counted in characters

void RefuseInLoop(const DoorsSession& session) {
  if (session.IsWalked())
    throw ScriptError(u"modules cannot be opened or closed inside a loop over modules or items");
}

/// `read`: the module is opened, or it is open already and stays as it is; whether DOORS would then give a
/// hidden one a window is not known, so it gets none.
Value Read(DoorsSession& session, Call& call, bool is_displayed, bool in_standard_view) {
  const Text& path = call.String(0);
  RefuseInLoop(session);
  const auto item = ModuleItem(session, path);
  if (!item) throw ScriptError(u"the module " + path + u" cannot be opened");
  try {
    auto module = session.OpenItem(*item, is_displayed);
    call.State().budget.SpendOn(kWorkOfAnObject * module->content.Objects().size());
    if (in_standard_view) module->ShowView(Text(kStandardView), {});
    return Value(std::move(module));
  } catch (const AutomationError& error) {
    throw ScriptError(error.Description);
  }
}

const Text& ModulePath(Call& call) {
  if (call.String(0).empty()) throw ScriptError(u"the name of a module is null");
  return call.String(0);
}

void AddNames(PermTable& table) {
  DoorsSession& session = table.session;
  table.Add(u"ModName_ module(string)", [](Call& call) {
    ModulePath(call);
    return dxl::NewHandle(NameHandle(call, 0));
  });
  table.Add(u"bool module(string)",
            [&](Call& call) { return Value(ModuleItem(session, ModulePath(call)).has_value()); });
  const auto found = [&session](Call& call) { return ModuleItem(session, call.As<NameHandle>(0).Get()); };
  const auto existing = [found](Call& call) {
    auto item = found(call);
    if (!item) throw ScriptError(u"there is no module " + call.As<NameHandle>(0).Get());
    return std::move(*item);
  };
  table.Add(u"bool exists(ModName_)", [=](Call& call) { return Value(found(call).has_value()); });
  table.Add(u"bool isDeleted(ModName_)", [=](Call& call) { return Value(!found(call)); });
  table.Add(u"string type(ModName_)", [=](Call& call) { return Value(existing(call).type); });
  table.Add(u"string name(ModName_)", [=](Call& call) { return Value(existing(call).name); });
  table.Add(u"string description(ModName_)", [=](Call& call) { return Value(existing(call).description); });
  table.Add(u"string path(ModName_)",
            [=, &session](Call& call) { return Value(session.Database().FullName(existing(call).parent)); });
  table.Add(u"string fullName(ModName_)",
            [=, &session](Call& call) { return Value(session.Database().FullName(existing(call).id)); });
  table.Add(u"bool open(ModName_)", [=, &session](Call& call) {
    const auto item = found(call);
    return Value(item && session.FindOpen(item->id));
  });
  table.Add(u"ModuleVersion moduleVersion(ModName_)",
            [](Call& call) { return Value(call.Share<NameHandle>(0)); });
  table.Add(u"Module data(ModuleVersion)", [=, &session](Call& call) {
    const auto item = found(call);
    return Value(item ? session.FindOpen(item->id) : nullptr);
  });
}

void AddQuestions(PermTable& table) {
  DoorsSession& session = table.session;
  table.Add(u"string type(Module)", [](Call& call) { return Value(ModuleOf(call, 0).type); });
  table.Add(u"string name(Module)", [](Call& call) { return Value(ModuleOf(call, 0).name); });
  table.Add(u"string description(Module)", [](Call& call) { return Value(ModuleOf(call, 0).description); });
  table.Add(u"string fullName(Module)", [](Call& call) { return Value(ModuleOf(call, 0).path); });
  table.Add(u"string path(Module)", [&](Call& call) {
    const auto item = session.Database().Find(ModuleOf(call, 0).id);
    return Value(item ? session.Database().FullName(item->parent) : Text());
  });
  table.Add(u"bool isDeleted(Module)", [&](Call& call) {
    const auto item = session.Database().Find(ModuleOf(call, 0).id);
    return Value(!item || item->deleted || !item->readable);
  });
  table.Add(u"bool isVisible(Module)", [](Call& call) { return Value(ModuleOf(call, 0).is_displayed); });
  table.Add(u"bool canRead(Module)", [](Call& call) {
    ModuleOf(call, 0);
    return Value(true);
  });
  table.Add(u"bool isRead(Module)", [](Call& call) { return Value(!ModuleOf(call, 0).is_edited); });
  for (const auto* signature : {u"bool isEdit(Module)", u"bool unsaved(Module)"})
    table.Add(signature, [](Call& call) { return Value(ModuleOf(call, 0).is_edited); });
  for (const auto* never : {u"isShare", u"isBaseline", u"baseline"})
    table.Add(Text(u"bool ").append(never).append(u"(Module)"), [](Call& call) {
      ModuleOf(call, 0);
      return Value(false);
    });
}

void AddCurrent(PermTable& table) {
  DoorsSession& session = table.session;
  table.Add(u"Module current()", [&](Call&) { return Value(session.current_module); });
  table.Add(u"Module current=(Module)", [&](Call& call) {
    ModuleOf(call, 0);
    session.current_module = call.Share<OpenModule>(0);
    return Value(session.current_module);
  });
}

void AddWindowPerms(PermTable& table) {
  for (const auto* nothing_to_see : {u"void refresh(Module)", u"void synchExplorer(Module)"})
    table.Add(nothing_to_see, [](Call& call) {
      ModuleOf(call, 0);
      return Value();
    });
}

}  // namespace

void AddModulePerms(PermTable& table) {
  DoorsSession& session = table.session;
  table.Add(u"Module module(Item)",
            [&](Call& call) { return Value(session.FindOpen(call.As<ItemHandle>(0).id)); });
  table.Add(u"Module module(Object)",
            [](Call& call) { return Value(PlaceOf(call, 0).module->shared_from_this()); });
  table.Add(u"Module read(string)", [&](Call& call) { return Read(session, call, true, false); });
  table.Add(u"Module read(string, bool)",
            [&](Call& call) { return Read(session, call, call.Bool(1), false); });
  table.Add(u"Module read(string, bool, bool)",
            [&](Call& call) { return Read(session, call, call.Bool(1), call.Bool(2)); });
  table.Add(u"bool close(Module)", [&](Call& call) {
    RefuseInLoop(session);
    return Value(session.CloseAsking(ModuleOf(call, 0)));
  });
  table.Add(u"bool close(Module, bool)", [&](Call& call) {
    RefuseInLoop(session);
    if (call.Bool(1)) throw ScriptError(u"saving a module is not supported here");
    session.CloseLosing(ModuleOf(call, 0));
    return Value(true);
  });
  table.AddLoop(u"for Module in database", [&](Call&) -> dxl::Next {
    return [open = session.Open(), next = std::size_t{0}, walk = session.NewWalk()](Value& value) mutable {
      if (next == open.size()) return false;
      value = Value(open[next++]);
      return true;
    };
  });
  AddNames(table);
  AddQuestions(table);
  AddCurrent(table);
  AddWindowPerms(table);
}

}  // namespace kestrune::standins
