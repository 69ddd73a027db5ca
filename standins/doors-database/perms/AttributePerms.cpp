#include "standins/doors-database/perms/Handles.h"
#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

namespace {

using dxl::Call;
using dxl::Value;

constexpr int kNone = ModuleContent::kNone;

const AttributeDefinition& DefinitionOf(Call& call) {
  const PlaceInModule& attribute = PlaceOf(call, 0);
  return attribute.module->content.Attributes()[static_cast<std::size_t>(attribute.place)];
}

void AddProperties(PermTable& table) {
  table.Add(u"string .name(AttrDef)", [](Call& call) { return Value(DefinitionOf(call).name); });
  table.Add(u"string .typeName(AttrDef)", [](Call& call) { return Value(DefinitionOf(call).type); });
  table.Add(u"bool .object(AttrDef)", [](Call& call) { return Value(DefinitionOf(call).on_object); });
  table.Add(u"bool .module(AttrDef)", [](Call& call) { return Value(DefinitionOf(call).on_module); });
  table.Add(u"bool .system(AttrDef)", [](Call& call) { return Value(DefinitionOf(call).system); });
  table.Add(u"bool .multi(AttrDef)", [](Call& call) { return Value(DefinitionOf(call).multi); });
  for (const auto* never : {u"bool .dxl(AttrDef)", u"bool .hidden(AttrDef)", u"bool .inherit(AttrDef)"})
    table.Add(never, [](Call& call) {
      DefinitionOf(call);
      return Value(false);
    });
  table.Add(u"string .dxl(AttrDef)", [](Call& call) {
    DefinitionOf(call);
    return Value(Text());
  });
}

void AddLoops(PermTable& table) {
  table.AddLoop(u"for AttrDef in Module", [](Call& call) -> dxl::Next {
    ModuleOf(call, 0);
    return [module = call.Share<OpenModule>(0), place = 0](Value& value) mutable {
      if (!module->is_open) throw dxl::ScriptError(u"the module was closed inside the loop");
      if (place == static_cast<int>(module->content.Attributes().size())) return false;
      value = Value(module->AttributeHandle(place++));
      return true;
    };
  });
  table.AddLoop(u"for string in Module", [](Call& call) -> dxl::Next {
    ModuleOf(call, 0);
    return [module = call.Share<OpenModule>(0), place = std::size_t{0}](Value& value) mutable {
      if (!module->is_open) throw dxl::ScriptError(u"the module was closed inside the loop");
      const auto& attributes = module->content.Attributes();
      while (place < attributes.size() && !attributes[place].on_object) ++place;
      if (place == attributes.size()) return false;
      value = Value(attributes[place++].name);
      return true;
    };
  });
}

}  // namespace

void AddAttributePerms(PermTable& table) {
  DoorsSession& session = table.session;
  table.Add(u"AttrDef find(Module, string)", [](Call& call) {
    OpenModule& module = ModuleOf(call, 0);
    return Value(module.AttributeHandle(module.content.AttributeAt(call.String(1))));
  });
  table.Add(u"AttrName__ attribute(string)", [](Call& call) { return dxl::NewHandle(NameHandle(call, 0)); });
  table.Add(u"bool exists(AttrName__)", [&](Call& call) {
    return Value(CurrentModule(session).content.AttributeAt(call.As<NameHandle>(0).Get()) != kNone);
  });
  table.Add(u"bool hasSpecificValue(Object, AttrDef)", [](Call& call) {
    const PlaceInModule& object = PlaceOf(call, 0);
    const PlaceInModule& attribute = PlaceOf(call, 1);
    if (object.module != attribute.module)
      throw dxl::ScriptError(u"the definition belongs to another module");
    return Value(object.module->content.HasValue(object.place, attribute.place));
  });
  AddProperties(table);
  AddLoops(table);
}

}  // namespace kestrune::standins
