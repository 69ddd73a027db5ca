#include "standins/doors-database/perms/Handles.h"
#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

namespace {

using dxl::Call;
using dxl::ScriptError;
using dxl::Value;

Value Load(DoorsSession& session, Call& call, OpenModule& module, const NameHandle& view) {
  bool refuses = false;
  call.State().budget.SpendOn(module.content.Objects().size());
  const bool is_loaded = session.LoadView(module, view.Get(), refuses);
  if (refuses) {
    throw ScriptError(u"the view " + view.Get() +
                      u" has a filter and the module has no window: whether DOORS would " +
                      u"narrow it is not known");
  }
  return Value(is_loaded);
}

}  // namespace

void AddViewPerms(PermTable& table) {
  DoorsSession& session = table.session;
  table.Add(u"View view(string)", [](Call& call) { return dxl::NewHandle(NameHandle(call, 0)); });
  table.Add(u"View view(Item, string)", [](Call& call) { return dxl::NewHandle(NameHandle(call, 1)); });
  table.Add(u"bool load(View)",
            [&](Call& call) { return Load(session, call, CurrentModule(session), call.As<NameHandle>(0)); });
  for (const auto* signature : {u"bool load(Module, View)", u"bool load(Module, View, bool)"})
    table.Add(signature,
              [&](Call& call) { return Load(session, call, ModuleOf(call, 0), call.As<NameHandle>(1)); });
  table.Add(u"string currentView(Module)", [](Call& call) { return Value(ModuleOf(call, 0).ViewName()); });
  table.Add(u"bool canRead(Module, View)", [&](Call& call) {
    const auto view = ReadView(session.Database().Sql(), ModuleOf(call, 0).id, call.As<NameHandle>(1).Get());
    return Value(view && view->loadable);
  });
  table.AddLoop(u"for string in views Module", [&](Call& call) -> dxl::Next {
    return [names = session.Database().Views(ModuleOf(call, 0).id),
            next = std::size_t{0}](Value& value) mutable {
      if (next == names.size()) return false;
      value = Value(names[next++]);
      return true;
    };
  });
  table.Add(u"bool filtering(Module)", [](Call& call) { return Value(ModuleOf(call, 0).IsFiltering()); });
  table.Add(u"void filtering(bool)", [&](Call& call) {
    CurrentModule(session).SetFiltering(call.Bool(0));
    return Value();
  });
  table.Add(u"void showDeletedObjects(bool)", [&](Call& call) {
    CurrentModule(session).ShowDeleted(call.Bool(0));
    return Value();
  });
}

}  // namespace kestrune::standins
