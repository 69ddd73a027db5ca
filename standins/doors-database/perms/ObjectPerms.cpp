#include "standins/doors-database/perms/Handles.h"
#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

namespace {

using dxl::Call;
using dxl::ScriptError;
using dxl::Value;

constexpr int kNone = ModuleContent::kNone;

const DoorsObject& ObjectOf(Call& call) {
  const PlaceInModule& object = PlaceOf(call, 0);
  return object.module->At(object.place);
}

/// Headers of tables and rows are drawn by their cells and do not count as visible themselves.
bool IsVisible(const PlaceInModule& object) {
  const TablePart part = object.module->At(object.place).part;
  return part != TablePart::kTable && part != TablePart::kRow && object.module->IsInDisplaySet(object.place);
}

void AddQuestions(PermTable& table) {
  table.Add(u"string identifier(Object)", [](Call& call) {
    const PlaceInModule& object = PlaceOf(call, 0);
    return Value(object.module->Identifier(object.place));
  });
  table.Add(u"string number(Object)", [](Call& call) {
    const PlaceInModule& object = PlaceOf(call, 0);
    return Value(object.module->OutlineNumber(object.place));
  });
  table.Add(u"int level(Object)", [](Call& call) { return Value(ObjectOf(call).level); });
  table.Add(u"bool isDeleted(Object)", [](Call& call) { return Value(ObjectOf(call).deleted); });
  table.Add(u"bool canRead(Object)", [](Call& call) { return Value(ObjectOf(call).readable); });
  table.Add(u"bool isVisible(Object)", [](Call& call) { return Value(IsVisible(PlaceOf(call, 0))); });
  table.Add(u"bool isFiltered(Object)", [](Call& call) {
    const PlaceInModule& object = PlaceOf(call, 0);
    return Value(object.module->IsAccepted(object.place));
  });
  table.Add(u"bool table(Object)",
            [](Call& call) { return Value(ObjectOf(call).part == TablePart::kTable); });
  table.Add(u"bool row(Object)", [](Call& call) { return Value(ObjectOf(call).part == TablePart::kRow); });
  table.Add(u"bool cell(Object)", [](Call& call) { return Value(ObjectOf(call).part == TablePart::kCell); });
}

int FirstChild(const PlaceInModule& object) {
  return object.module->At(object.place).end > object.place + 1 ? object.place + 1 : kNone;
}

int LastChild(const PlaceInModule& object) {
  const int end = object.module->At(object.place).end;
  int last = kNone;
  for (int child = object.place + 1; child < end; child = object.module->At(child).end) last = child;
  return last;
}

int Next(const PlaceInModule& object) {
  const auto count = static_cast<int>(object.module->content.Objects().size());
  return object.place + 1 < count ? object.place + 1 : kNone;
}

int Previous(const PlaceInModule& object) {
  return object.place > 0 ? object.place - 1 : kNone;
}
int Parent(const PlaceInModule& object) {
  return object.module->At(object.place).parent;
}

void AddNeighbours(PermTable& table) {
  const auto add = [&table](TextView signature, int (*neighbour)(const PlaceInModule&)) {
    table.Add(signature, [neighbour](Call& call) {
      const PlaceInModule& object = PlaceOf(call, 0);
      return Value(object.module->ObjectHandle(neighbour(object)));
    });
  };
  add(u"Object first(Object)", FirstChild);
  add(u"Object last(Object)", LastChild);
  add(u"Object next(Object)", Next);
  add(u"Object previous(Object)", Previous);
  add(u"Object parent(Object)", Parent);
}

void MakeCurrent(PlaceInModule& object) {
  object.module->current_object = object.place;
}

void ScrollTo(PlaceInModule& object) {
  if (!object.module->is_displayed) throw ScriptError(u"the module has no window to scroll");
  object.module->scrolled_to = object.place;
}

/// Shows an object at any price: a view that hides it gives way to the standard view.
Value GoTo(OpenModule& module, int absolute_number) {
  const auto object = module.ObjectHandle(module.content.ObjectAt(absolute_number));
  if (!object) return Value(object);
  if (!module.IsInDisplaySet(object->place)) module.ShowView(Text(kStandardView), {});
  MakeCurrent(*object);
  ScrollTo(*object);
  return Value(object);
}

void AddCurrent(PermTable& table) {
  DoorsSession& session = table.session;
  table.Add(u"Object current()", [&](Call&) {
    const auto& module = session.current_module;
    return Value(module ? module->ObjectHandle(module->current_object) : nullptr);
  });
  table.Add(u"Object current=(Object)", [](Call& call) {
    MakeCurrent(PlaceOf(call, 0));
    return Value(call.Share<PlaceInModule>(0));
  });
  table.Add(u"Object gotoObject(int, Module)",
            [](Call& call) { return GoTo(ModuleOf(call, 1), call.Int(0)); });
  table.Add(u"Scroll__ to(Object)", [](Call& call) { return Value(call.Share<PlaceInModule>(0)); });
  table.Add(u"void scroll(Scroll__)", [](Call& call) {
    ScrollTo(PlaceOf(call, 0));
    return Value();
  });
}

}  // namespace

void AddObjectPerms(PermTable& table) {
  DoorsSession& session = table.session;
  table.Add(u"Object object(int)", [&](Call& call) {
    OpenModule& module = CurrentModule(session);
    return Value(module.ObjectHandle(module.content.ObjectAt(call.Int(0))));
  });
  table.Add(u"Object object(int, Module)", [](Call& call) {
    OpenModule& module = ModuleOf(call, 1);
    return Value(module.ObjectHandle(module.content.ObjectAt(call.Int(0))));
  });
  AddQuestions(table);
  AddNeighbours(table);
  AddCurrent(table);
}

}  // namespace kestrune::standins
