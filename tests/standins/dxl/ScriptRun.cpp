#include "ScriptRun.h"

#include <utility>

namespace kestrune::dxl {

namespace {

struct TestModule {
  std::vector<std::shared_ptr<struct TestObject>> objects;
};

struct TestObject {
  int number;
};

struct TestAttribute {
  std::shared_ptr<TestObject> object;
  Text name;
};

struct TestDefinition {
  Text name;
};

std::shared_ptr<TestModule> OneModule() {
  static const auto module = [] {
    auto made = std::make_shared<TestModule>();
    for (int number : {1, 2, 3}) made->objects.push_back(std::make_shared<TestObject>(TestObject{number}));
    return made;
  }();
  return module;
}

Text ValueOf(const TestAttribute& attribute) {
  if (attribute.name == u"Missing") throw ScriptError(u"unknown attribute (Missing)");
  return attribute.name == u"Absolute Number" ? ToText(attribute.object->number)
                                              : Text(u"<").append(attribute.name).append(u">");
}

void AddObjects(Library& library) {
  library.Add(u"string identifier(Object)",
              [](Call& call) { return Value(Text(u"R").append(ToText(call.As<TestObject>(0).number))); });
  library.Add(u"int level(Object)", [](Call&) { return Value(1); });
  library.Add(u"Object object(int, Module)", [](Call& call) {
    const auto& objects = call.As<TestModule>(1).objects;
    const auto index = static_cast<std::size_t>(call.Int(0) - 1);
    return index < objects.size() ? Value(objects[index]) : Value();
  });
  library.Add(u"Object first(Module)",
              [](Call& call) { return Value(call.As<TestModule>(0).objects.front()); });
  library.AddLoop(u"for Object in entire Module", [](Call& call) -> Next {
    return [module = call.Share<TestModule>(0), i = std::size_t{0}](Value& object) mutable {
      if (i == module->objects.size()) return false;
      object = Value(module->objects[i++]);
      return true;
    };
  });
}

void AddAttributes(Library& library) {
  library.Add(u"Attr__ .(Object, string)", [](Call& call) {
    return Value(std::make_shared<TestAttribute>(TestAttribute{call.Share<TestObject>(0), call.String(1)}));
  });
  library.Add(u"string ..(Attr__, string)",
              [](Call& call) { return Value(ValueOf(call.As<TestAttribute>(0)) + call.String(1)); });
  library.Add(u"string =(string&, Attr__)", [](Call& call) {
    call.Set(0, Value(ValueOf(call.As<TestAttribute>(1))));
    return call.At(0);
  });
  library.Add(u"int =(int&, Attr__)", [](Call& call) {
    call.Set(0, Value(call.As<TestAttribute>(1).object->number));
    return call.At(0);
  });
  library.Add(u"string richText(Attr__)", [](Call& call) {
    return Value(Text(u"{").append(ValueOf(call.As<TestAttribute>(0))).append(u"}"));
  });
}

void AddDefinitions(Library& library) {
  library.AddLoop(u"for AttrDef in Module", [](Call&) -> Next {
    return [done = false](Value& definition) mutable {
      definition = Value(std::make_shared<TestDefinition>(TestDefinition{u"Status"}));
      return !std::exchange(done, true);
    };
  });
  library.Add(u"string .name(AttrDef)", [](Call& call) { return Value(call.As<TestDefinition>(0).name); });
  library.Add(u"bool .module(AttrDef)", [](Call&) { return Value(false); });
  library.Add(u"bool .dxl(AttrDef)", [](Call&) { return Value(true); });
  library.Add(u"string .dxl(AttrDef)", [](Call&) { return Value(u"return 1"); });
}

/// `module` gives a name or tells whether there is a module of that name; `current` is one module
/// until it is set.
void AddModules(Library& library) {
  const auto current = std::make_shared<std::shared_ptr<TestModule>>(OneModule());
  library.Add(u"ModName_ module(string)",
              [](Call& call) { return call.String(0) == u"/Reqs" ? Value(OneModule()) : Value(); });
  library.Add(u"bool module(string)", [](Call& call) { return Value(call.String(0) == u"/Reqs"); });
  library.Add(u"bool exists(ModName_)", [](Call&) { return Value(true); });
  library.Add(u"Module read(string, bool)", [](Call& call) {
    if (call.String(0) != u"/Reqs") throw ScriptError(u"no such module");
    return Value(OneModule());
  });
  library.Add(u"Module current()", [current](Call&) { return Value(*current); });
  library.Add(u"Object current()", [](Call&) { return Value(OneModule()->objects.front()); });
  library.Add(u"Module current=(Module?)", [current](Call& call) {
    *current = call.Share<TestModule>(0);
    return call.At(0);
  });
  library.AddLoop(u"for Module in database", [](Call&) -> Next {
    return [done = false](Value& module) mutable {
      module = Value(OneModule());
      return !std::exchange(done, true);
    };
  });
}

std::string Describe(const Error& error) {
  return std::string("line ")
      .append(std::to_string(error.at.line))
      .append(": ")
      .append(ToUtf8(error.message));
}

}  // namespace

std::unique_ptr<Library> NewTestLibrary() {
  auto library = std::make_unique<Library>();
  for (const TextView type : {u"Module", u"ModName_", u"Object", u"AttrDef", u"Attr__"})
    library->AddType(type);
  library->AddAlias(u"ModuleRef__", u"Module");
  for (const TextView type : {u"Module", u"Object", u"AttrDef"}) library->AddIdentity(type);
  AddObjects(*library);
  AddAttributes(*library);
  AddDefinitions(*library);
  AddModules(*library);
  return library;
}

Outcome RunScript(const std::string& script, std::size_t memory_limit) {
  Outcome outcome;
  const auto library = NewTestLibrary();
  const CompileResult compiled = Compile({u"test", FromUtf8(script)}, *library);
  for (const Error& error : compiled.errors) outcome.compile_errors.push_back(Describe(error));
  if (!compiled.program) return outcome;
  RecordingHost host;
  const auto [error, cost] = Run(*compiled.program, host, memory_limit);
  if (error) outcome.runtime_error = Describe(*error);
  outcome.cost = cost;
  outcome.printed = ToUtf8(host.printed);
  return outcome;
}

}  // namespace kestrune::dxl
