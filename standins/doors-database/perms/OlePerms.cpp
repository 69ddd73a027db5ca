#include "standins/doors-database/perms/Handles.h"
#include "standins/doors-database/perms/PermTable.h"

namespace kestrune::standins {

namespace {

using dxl::Call;
using dxl::ScriptError;
using dxl::Value;

struct OleObject {
  Object object;  // nothing once closed
};

/// What a node of a document takes, as long as the document is there: to the end of the run, for all that the
/// script can tell.
constexpr std::size_t kNodeBytes = 200;

struct OleArguments {
  Args values;
  bool has_named = false;
  dxl::Lease lease;
};

constexpr const char16_t* kValueTypes[] = {u"string", u"int", u"bool", u"char", u"OleAutoObj"};

Text Signature(TextView head, TextView type, TextView tail) {
  return Text(head).append(type).append(tail);
}

const Object& ObjectOf(const std::shared_ptr<OleObject>& handle) {
  if (!handle || !handle->object) throw ScriptError(u"the automation object is closed");
  return handle->object;
}

const Object& Target(Call& call) {
  return ObjectOf(call.Share<OleObject>(0));
}

/// A script's value as automation passes it; a null handle is "nothing".
Variant VariantOf(Call& call, std::size_t i) {
  const dxl::Type type = call.TypeOf(i);
  if (type == dxl::kString) return call.String(i);
  if (type == dxl::kInt) return call.Int(i);
  if (type == dxl::kBool) return call.Bool(i);
  if (type == dxl::kChar) return Text(1, call.Char(i));
  const auto handle = call.Share<OleObject>(i);
  return handle ? ObjectOf(handle) : Object();
}

void Assign(Call& call, std::size_t i, const Variant& value) {
  const dxl::Type type = call.TypeOf(i);
  if (type == dxl::kString) return call.Set(i, Value(value.ToText()));
  if (type == dxl::kInt) return call.Set(i, Value(value.ToInt()));
  if (type == dxl::kBool) return call.Set(i, Value(value.ToBool()));
  if (type == dxl::kChar) return call.Set(i, Value(value.ToText().empty() ? u'\0' : value.ToText().front()));
  const Object object = value.ToObject();
  if (!object) return call.Set(i, Value(std::shared_ptr<OleObject>()));
  call.State().budget.Take(kNodeBytes);
  call.Set(i, dxl::NewHandle(OleObject{object}));
}

/// The perms answer null when all went well, and otherwise say what did not.
template <typename Action>
Value Report(TextView what, TextView member, Action action) {
  try {
    return Value(action());
  } catch (const AutomationError& error) {
    return Value(Text(what).append(u" '").append(member).append(u"' failed: ").append(error.Description));
  }
}

Args ArgumentsOf(Call& call, std::size_t i) {
  const auto& arguments = call.As<OleArguments>(i);
  if (arguments.has_named)
    throw AutomationError(error::kUnknownMember, u"DOORS",
                          u"named arguments are not supported by the object");
  return arguments.values;
}

Value Get(Call& call, bool has_arguments) {
  return Report(u"Property", call.String(1), [&] {
    const Variant value = has_arguments ? Target(call).Get(call.String(1), ArgumentsOf(call, 2))
                                        : Target(call).Get(call.String(1));
    Assign(call, has_arguments ? 3 : 2, value);
    return Text();
  });
}

Value Put(Call& call) {
  return Report(u"Property", call.String(1), [&] {
    if (call.TypeOf(2) == dxl::kString) call.State().budget.Take(call.String(2).size());
    Target(call).Put(call.String(1), VariantOf(call, 2));
    return Text();
  });
}

Value Method(Call& call, bool has_arguments, bool has_result) {
  return Report(u"Method", call.String(1), [&] {
    const Variant result = has_arguments ? Target(call).Call(call.String(1), ArgumentsOf(call, 2))
                                         : Target(call).Call(call.String(1));
    if (!has_result) return Text();
    if (result.IsEmpty()) return u"Method '" + call.String(1) + u"' gave no value";
    Assign(call, 3, result);
    return Text();
  });
}

Value Create(ObjectFactory& objects, const Text& prog_id) try {
  return dxl::NewHandle(OleObject{objects.Create(prog_id)});
} catch (const AutomationError&) {  // the script is told by a null handle
  return Value(std::shared_ptr<OleObject>());
}

void AddArgumentPerms(PermTable& table) {
  table.Add(u"OleAutoArgs create()", [](Call&) { return Value(std::make_shared<OleArguments>()); });
  for (const auto* type : kValueTypes) {
    const TextView null_mark = TextView(type) == u"OleAutoObj" ? u"?)" : u")";
    table.Add(Signature(u"void put(OleAutoArgs, ", type, null_mark), [](Call& call) {
      auto& arguments = call.As<OleArguments>(0);
      const std::size_t text = call.TypeOf(1) == dxl::kString ? dxl::BytesOf(call.String(1)) : 0;
      arguments.lease.Grow(sizeof(Variant) + text);
      arguments.values.push_back(VariantOf(call, 1));
      return Value();
    });
    table.Add(Signature(u"void put(OleAutoArgs, string, ", type, null_mark), [](Call& call) {
      call.As<OleArguments>(0).has_named = true;
      return Value();
    });
  }
  for (const auto* signature : {u"void clear(OleAutoArgs)", u"void delete(OleAutoArgs)"})
    table.Add(signature, [](Call& call) {
      auto& arguments = call.As<OleArguments>(0);
      arguments.values.clear();
      arguments.has_named = false;
      arguments.lease.Resize(0);
      return Value();
    });
}

void AddMemberPerms(PermTable& table) {
  for (const auto* type : kValueTypes) {
    table.Add(Signature(u"string oleGet(OleAutoObj, string, ", type, u"&)"),
              [](Call& call) { return Get(call, false); });
    table.Add(Signature(u"string oleGet(OleAutoObj, string, OleAutoArgs, ", type, u"&)"),
              [](Call& call) { return Get(call, true); });
    table.Add(Signature(u"string olePut(OleAutoObj, string, ", type, u")"), Put);
    table.Add(Signature(u"string oleMethod(OleAutoObj, string, OleAutoArgs, ", type, u"&)"),
              [](Call& call) { return Method(call, true, true); });
  }
  table.Add(u"string oleMethod(OleAutoObj, string)", [](Call& call) { return Method(call, false, false); });
  table.Add(u"string oleMethod(OleAutoObj, string, OleAutoArgs)",
            [](Call& call) { return Method(call, true, false); });
}

}  // namespace

void AddOlePerms(PermTable& table) {
  table.Add(u"OleAutoObj oleCreateAutoObject(string)",
            [&objects = table.objects](Call& call) { return Create(objects, call.String(0)); });
  table.Add(u"OleAutoObj oleGetAutoObject(string)",  // nothing else runs beside this DOORS
            [](Call&) { return Value(std::shared_ptr<OleObject>()); });
  table.Add(u"void oleCloseAutoObject(OleAutoObj&)", [](Call& call) {
    const auto handle = call.Share<OleObject>(0);
    ObjectOf(handle);
    handle->object = Object();
    call.Set(0, Value(std::shared_ptr<OleObject>()));
    return Value();
  });
  AddArgumentPerms(table);
  AddMemberPerms(table);
}

}  // namespace kestrune::standins
