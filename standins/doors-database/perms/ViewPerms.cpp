#include "standins/doors-database/perms/Handles.h"
#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

namespace {

using dxl::Call;
using dxl::ScriptError;
using dxl::Value;

Value Load(DoorsSession& session, OpenModule& module, const ViewReference& view) {
  bool refuses = false;
  const bool is_loaded = session.LoadView(module, view.name, refuses);
  if (refuses) {
    throw ScriptError(u"the view " + view.name +
                      u" has a filter and the module has no window: whether DOORS would " +
                      u"narrow it is not known");
  }
  return Value(is_loaded);
}

Value NewReference(const Text& name) {
  return Value(std::make_shared<ViewReference>(name));
}

}  // namespace

void AddViewPerms(PermTable& table) {
  DoorsSession& session = table.session;
  table.Add(u"View view(string)", [](Call& call) { return NewReference(call.String(0)); });
  table.Add(u"View view(Item, string)", [](Call& call) { return NewReference(call.String(1)); });
  table.Add(u"bool load(View)",
            [&](Call& call) { return Load(session, CurrentModule(session), call.As<ViewReference>(0)); });
  for (const auto* signature : {u"bool load(Module, View)", u"bool load(Module, View, bool)"})
    table.Add(signature,
              [&](Call& call) { return Load(session, ModuleOf(call, 0), call.As<ViewReference>(1)); });
  table.Add(u"string currentView(Module)", [](Call& call) { return Value(ModuleOf(call, 0).ViewName()); });
  table.Add(u"bool canRead(Module, View)", [&](Call& call) {
    const auto view =
        ReadView(session.Database().Sql(), ModuleOf(call, 0).id, call.As<ViewReference>(1).name);
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
