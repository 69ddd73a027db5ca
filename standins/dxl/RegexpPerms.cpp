#include <optional>

#include "standins/dxl/Buffer.h"
#include "standins/dxl/CorePerms.h"
#include "standins/dxl/Library.h"
#include "standins/dxl/Regex.h"
#include "standins/dxl/TextAccess.h"

namespace kestrune::dxl {

namespace {

struct Regexp {
  explicit Regexp(const Text& pattern)
      : regex(std::in_place, pattern), lease(sizeof(Regexp) + regex->Bytes()) {}
  std::optional<Regex> regex;  // nothing once the script has deleted it
  Lease lease;
};

Value NewRegexp(Call& call) {
  return Value(std::make_shared<Regexp>(call.String(0)));
}

/// Sets the match that match, start and end speak of; a failed search clears it.
Value Search(Call& call, const Regex& regex, TextView text) {
  call.State().match = regex.Search(text);
  return Value(!call.State().match.empty());
}

const Regex& RegexAt(const Call& call, std::size_t i) {
  const auto& regexp = call.As<Regexp>(i);
  if (!regexp.regex) throw ScriptError(u"deleted Regexp used");
  return *regexp.regex;
}

Value SearchFrom(Call& call) {
  const TextView text = BufferAt(call, 1).text;
  const std::int32_t from = call.Int(2);
  if (from < 0 || static_cast<std::size_t>(from) > text.size())
    throw ScriptError(u"search from outside the Buffer");
  return Search(call, RegexAt(call, 0), text.substr(static_cast<std::size_t>(from)));
}

Extent GroupAt(const Call& call, std::int32_t group) {
  const std::vector<Extent>& match = call.State().match;
  if (match.empty()) throw ScriptError(u"no match to speak of");
  if (group < 0 || static_cast<std::size_t>(group) >= match.size())
    throw ScriptError(u"no such group (" + ToText(group) + u")");
  return match[static_cast<std::size_t>(group)];
}

/// Of start and end, for which a group that took no part in the match has no answer.
Extent PlaceAt(const Call& call) {
  const Extent extent = GroupAt(call, call.Int(0));
  if (extent.first < 0) throw ScriptError(u"group without a match (" + ToText(call.Int(0)) + u")");
  return extent;
}

Value MatchedText(const Call& call, TextView text) {
  const Extent extent = GroupAt(call, call.As<std::int32_t>(1));
  if (extent.first == extent.end) return Value(Text());
  return SliceOf(text, extent.first, extent.end - 1);
}

}  // namespace

void AddRegexpPerms(Library& library) {
  library.AddType(u"Regexp");
  library.AddType(u"Match__");
  library.Add(u"Regexp regexp(string)", NewRegexp);
  library.Add(u"Regexp regexp2(string)", NewRegexp);
  library.Add(u"bool ..(Regexp, string)",
              [](Call& call) { return Search(call, RegexAt(call, 0), call.String(1)); });
  library.Add(u"bool ..(Regexp, Buffer)",
              [](Call& call) { return Search(call, RegexAt(call, 0), BufferAt(call, 1).text); });
  library.Add(u"bool matches(string, string)",
              [](Call& call) { return Search(call, Regex(call.String(0)), call.String(1)); });
  library.Add(u"bool search(Regexp, Buffer, int)", SearchFrom);
  library.Add(u"Match__ match(int)", [](Call& call) { return NewHandle(call.Int(0)); });
  library.Add(u"string [](string, Match__)", [](Call& call) { return MatchedText(call, call.String(0)); });
  library.Add(u"string [](Buffer, Match__)",
              [](Call& call) { return MatchedText(call, BufferAt(call, 0).text); });
  library.Add(u"int start(int)",
              [](Call& call) { return Value(static_cast<std::int32_t>(PlaceAt(call).first)); });
  library.Add(u"int end(int)",
              [](Call& call) { return Value(static_cast<std::int32_t>(PlaceAt(call).end - 1)); });
  library.Add(u"void delete(Regexp)", [](Call& call) {
    auto& regexp = call.As<Regexp>(0);
    regexp.regex.reset();
    regexp.lease.Resize(0);
    return Value();
  });
}

}  // namespace kestrune::dxl
