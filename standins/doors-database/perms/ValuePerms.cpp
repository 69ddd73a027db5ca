#include <charconv>

#include "standins/doors-database/RichText.h"
#include "standins/doors-database/perms/Handles.h"
#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

namespace {

using dxl::Call;
using dxl::ScriptError;
using dxl::Value;

constexpr int kNone = ModuleContent::kNone;

/// Behind Attr__: one attribute of one object, read when a text or number is made of it.
struct AttributeReference {
  std::shared_ptr<OpenModule> module;
  int object = kNone;
  int attribute = kNone;
};

/// Behind Attr__ as well, where the module itself is asked: it has no markup.
Value OfModule(OpenModule& module, int attribute) {
  return dxl::NewHandle(AttributeReference{module.shared_from_this(), kNone, attribute});
}

const AttributeDefinition* DefinitionNamed(const OpenModule& module, const Text& name, int& place) {
  place = module.content.AttributeAt(name);
  return place == kNone ? nullptr : &module.content.Attributes()[static_cast<std::size_t>(place)];
}

Value ObjectAttribute(Call& call) {
  const PlaceInModule& object = PlaceOf(call, 0);
  int place = kNone;
  const auto* definition = DefinitionNamed(*object.module, call.String(1), place);
  if (!definition || !definition->on_object)
    throw ScriptError(u"unknown Object attribute (" + call.String(1) + u")");
  if (!definition->readable) throw ScriptError(u"no read access to attribute (" + call.String(1) + u")");
  if (!object.module->At(object.place).readable)
    throw ScriptError(u"no read access to object " + object.module->Identifier(object.place));
  return dxl::NewHandle(AttributeReference{object.module->shared_from_this(), object.place, place});
}

Value ModuleAttribute(Call& call) {
  OpenModule& module = ModuleOf(call, 0);
  int place = kNone;
  const auto* definition = DefinitionNamed(module, call.String(1), place);
  if (!definition || !definition->on_module)
    throw ScriptError(u"unknown Module attribute (" + call.String(1) + u")");
  if (!definition->readable) throw ScriptError(u"no read access to attribute (" + call.String(1) + u")");
  return OfModule(module, place);
}

/// A null reference comes of an error that noError holds back; it reads as empty.
Text TextOf(Call& call, std::size_t i) {
  const auto reference = call.Share<AttributeReference>(i);
  if (!reference) return {};
  const ModuleContent& content = reference->module->content;
  return reference->object == kNone ? content.ModuleValue(reference->attribute)
                                    : content.Value(reference->object, reference->attribute);
}

Text RichTextOf(Call& call) {
  const auto reference = call.Share<AttributeReference>(0);
  if (!reference || reference->object == kNone) return EscapeMarkup(TextOf(call, 0));
  return reference->module->content.RichValue(reference->object, reference->attribute);
}

template <typename Number>
Number NumberOf(Call& call) {
  const std::string text = ToUtf8(TextOf(call, 1));
  Number number{};
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end != text.data() + text.size())
    throw ScriptError(u"the attribute's value \"" + FromUtf8(text) + u"\" is of another type");
  return number;
}

/// A string variable takes texts and enumerations; the help promises the conversion of other
/// types only for concatenation.
Value AssignText(Call& call) {
  if (const auto reference = call.Share<AttributeReference>(1)) {
    const auto& definition =
        reference->module->content.Attributes()[static_cast<std::size_t>(reference->attribute)];
    for (const auto* type : {u"Integer", u"Real", u"Boolean", u"Date"})
      if (definition.type == type)
        throw ScriptError(
            Text(u"an attribute of type ").append(type).append(u" becomes a string only by \"\""));
  }
  call.Set(0, Value(TextOf(call, 1)));
  return call.At(0);
}

Value AssignBool(Call& call) {
  const Text text = TextOf(call, 1);
  if (text != u"True" && text != u"False")
    throw ScriptError(u"the attribute's value \"" + text + u"\" is of another type");
  call.Set(0, Value(text == u"True"));
  return call.At(0);
}

}  // namespace

void AddValuePerms(PermTable& table) {
  table.Add(u"Attr__ .(Object, string)", ObjectAttribute);
  table.Add(u"Attr__ .(Module, string)", ModuleAttribute);
  table.Add(u"string ..(Attr__?, string)",
            [](Call& call) { return Value(TextOf(call, 0) + call.String(1)); });
  table.Add(u"string richText(Attr__?)", [](Call& call) { return Value(RichTextOf(call)); });
  table.Add(u"string =(string&, Attr__?)", AssignText);
  table.Add(u"bool =(bool&, Attr__?)", AssignBool);
  table.Add(u"int =(int&, Attr__?)", [](Call& call) {
    call.Set(0, Value(NumberOf<std::int32_t>(call)));
    return call.At(0);
  });
  table.Add(u"real =(real&, Attr__?)", [](Call& call) {
    call.Set(0, Value(NumberOf<double>(call)));
    return call.At(0);
  });
}

}  // namespace kestrune::standins
