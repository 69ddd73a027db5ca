#include <cmath>
#include <limits>

#include "standins/dxl/CorePerms.h"
#include "standins/dxl/Library.h"
#include "standins/dxl/Numbers.h"
#include "standins/dxl/RunState.h"
#include "standins/dxl/TextAccess.h"

namespace kestrune::dxl {

namespace {

/// A text argument that the perm goes through from one end to the other.
const Text& WholeText(const Call& call, std::size_t i) {
  call.State().budget.SpendOn(call.String(i).size());
  return call.String(i);
}

int CompareIgnoringCase(TextView a, TextView b) {
  const int order = AsciiLower(a).compare(AsciiLower(b));
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

Value RoundedInt(double real) {
  const double rounded = std::round(real);
  const bool fits = rounded >= std::numeric_limits<std::int32_t>::min() &&
                    rounded <= std::numeric_limits<std::int32_t>::max();
  if (!fits) throw ScriptError(u"real out of the range of int");
  return Value(static_cast<std::int32_t>(rounded));
}

Value CharOf(std::int32_t code) {
  if (code < 0 || code > 0xFFFF) throw ScriptError(u"no character has this number");
  return Value(static_cast<char16_t>(code));
}

void AddConversions(Library& library) {
  library.Add(u"int intOf(char)", [](Call& call) { return Value(static_cast<std::int32_t>(call.Char(0))); });
  library.Add(u"int intOf(real)", [](Call& call) { return RoundedInt(call.Real(0)); });
  library.Add(u"int intOf(string)", [](Call& call) {
    const auto number = ParseInt(WholeText(call, 0));
    if (!number) throw ScriptError(u"not an int (" + call.String(0) + u")");
    return Value(*number);
  });
  library.Add(u"real realOf(int)", [](Call& call) { return Value(static_cast<double>(call.Int(0))); });
  library.Add(u"real realOf(string)", [](Call& call) {
    const auto number = ParseReal(WholeText(call, 0));
    if (!number) throw ScriptError(u"not a real (" + call.String(0) + u")");
    return Value(*number);
  });
  library.Add(u"char charOf(int)", [](Call& call) { return CharOf(call.Int(0)); });
  library.Add(u"bool isValidInt(string)", [](Call& call) {
    if (call.String(0).empty()) throw ScriptError(u"null string given to (isValidInt)");
    return Value(ParseInt(WholeText(call, 0)).has_value());
  });
}

void AddNullTests(Library& library) {
  library.Add(u"bool null(string)", [](Call& call) { return Value(call.String(0).empty()); });
  library.Add(u"bool null(int)", [](Call& call) { return Value(call.Int(0) == 0); });
  library.Add(u"bool null(bool)", [](Call& call) { return Value(!call.Bool(0)); });
  library.Add(u"bool null(char)", [](Call& call) { return Value(call.Char(0) == u'\0'); });
  library.Add(u"bool null(real)", [](Call& call) { return Value(call.Real(0) == 0); });
  library.Add(u"bool null(any)", [](Call& call) { return Value(!call.At(0).AsHandle()); });
}

}  // namespace

void AddTextPerms(Library& library) {
  library.Add(u"int length(string)",
              [](Call& call) { return Value(static_cast<std::int32_t>(call.String(0).size())); });
  library.Add(u"char [](string, int)", [](Call& call) { return CharAt(call.String(0), call.Int(1)); });
  library.Add(u"string [:](string, int, int)",
              [](Call& call) { return SliceOf(call.String(0), call.Int(1), call.Int(2)); });
  library.Add(u"string [:](string, int)",
              [](Call& call) { return SliceOf(call.String(0), call.Int(1), kToTheEnd); });
  library.Add(u"string upper(string)", [](Call& call) { return Value(AsciiUpper(call.String(0))); });
  library.Add(u"string lower(string)", [](Call& call) { return Value(AsciiLower(call.String(0))); });
  library.Add(u"int cistrcmp(string, string)",
              [](Call& call) { return Value(CompareIgnoringCase(WholeText(call, 0), WholeText(call, 1))); });
  AddConversions(library);
  AddNullTests(library);
}

}  // namespace kestrune::dxl
