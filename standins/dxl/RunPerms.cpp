#include <utility>

#include "standins/dxl/CorePerms.h"
#include "standins/dxl/Library.h"
#include "standins/dxl/Machine.h"

namespace kestrune::dxl {

namespace {

Host& HostOf(const Call& call) {
  return call.State().host;
}

/// What is printed outlives the run.
Value Print(const Call& call, TextView text) {
  call.State().budget.SpendOn(text.size());
  call.State().budget.Take(text.size() * sizeof(char16_t));
  HostOf(call).Print(text);
  return Value();
}

void AddOutput(Library& library) {
  library.Add(u"void print(string)", [](Call& call) { return Print(call, call.String(0)); });
  library.Add(u"void print(int)", [](Call& call) { return Print(call, ToText(call.Int(0)) + u"\n"); });
}

void AddResult(Library& library) {
  library.Add(u"string oleGetResult()", [](Call& call) { return Value(HostOf(call).Result()); });
  library.Add(u"void oleSetResult(string)", [](Call& call) {
    call.State().budget.SpendOn(call.String(0).size());
    HostOf(call).SetResult(call.String(0));
    return Value();
  });
  library.Add(u"string tempFileName()", [](Call& call) { return Value(HostOf(call).TempFileName()); });
}

void AddErrors(Library& library) {
  library.Add(u"void noError()", [](Call& call) {
    call.State().holds_errors = true;
    call.State().held_error.clear();
    return Value();
  });
  library.Add(u"string lastError()", [](Call& call) {
    call.State().holds_errors = false;
    return Value(std::exchange(call.State().held_error, {}));
  });
  library.Add(u"void halt()", [](Call&) -> Value { throw Halted(); });
}

}  // namespace

void AddRunPerms(Library& library) {
  AddOutput(library);
  AddResult(library);
  AddErrors(library);
}

}  // namespace kestrune::dxl
