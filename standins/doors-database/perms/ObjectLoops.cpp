#include "standins/doors-database/perms/Handles.h"
#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

namespace {

using dxl::Call;
using dxl::Value;

using Filter = bool (*)(const OpenModule&, int place);

bool IsEvery(const OpenModule&, int) {
  return true;
}
bool IsDisplayed(const OpenModule& module, int place) {
  return module.IsInDisplaySet(place);
}

/// Of tables the cells alone.
bool IsDisplayedText(const OpenModule& module, int place) {
  const TablePart part = module.At(place).part;
  return part != TablePart::kTable && part != TablePart::kRow && module.IsInDisplaySet(place);
}

/// Of tables the headers alone.
bool IsDisplayedInDocument(const OpenModule& module, int place) {
  const TablePart part = module.At(place).part;
  return part != TablePart::kRow && part != TablePart::kCell && module.IsInDisplaySet(place);
}

dxl::Next WalkModule(Call& call, Filter filter) {
  ModuleOf(call, 0);
  return [module = call.Share<OpenModule>(0), filter, place = 0](Value& value) mutable {
    if (!module->is_open) throw dxl::ScriptError(u"the module was closed inside the loop");
    const auto count = static_cast<int>(module->content.Objects().size());
    while (place < count && !filter(*module, place)) ++place;
    if (place == count) return false;
    value = Value(module->ObjectHandle(place++));
    return true;
  };
}

/// Siblings from `place` up to `end`, whatever is filtered or deleted.
dxl::Next WalkSiblings(std::shared_ptr<OpenModule> module, int place, int end) {
  return [module = std::move(module), place, end](Value& value) mutable {
    if (!module->is_open) throw dxl::ScriptError(u"the module was closed inside the loop");
    if (place >= end) return false;
    value = Value(module->ObjectHandle(place));
    place = module->At(place).end;
    return true;
  };
}

}  // namespace

void AddObjectLoops(PermTable& table) {
  table.AddLoop(u"for Object in entire Module", [](Call& call) { return WalkModule(call, IsEvery); });
  table.AddLoop(u"for Object in all Module", [](Call& call) { return WalkModule(call, IsDisplayed); });
  table.AddLoop(u"for Object in Module", [](Call& call) { return WalkModule(call, IsDisplayedText); });
  table.AddLoop(u"for Object in document Module",
                [](Call& call) { return WalkModule(call, IsDisplayedInDocument); });
  table.AddLoop(u"for Object in top Module", [](Call& call) {
    const auto count = static_cast<int>(ModuleOf(call, 0).content.Objects().size());
    return WalkSiblings(call.Share<OpenModule>(0), 0, count);
  });
  table.AddLoop(u"for Object in Object", [](Call& call) {
    const PlaceInModule& object = PlaceOf(call, 0);
    return WalkSiblings(object.module->shared_from_this(), object.place + 1,
                        object.module->At(object.place).end);
  });
}

}  // namespace kestrune::standins
