#include <map>
#include <variant>

#include "standins/dxl/CorePerms.h"
#include "standins/dxl/Library.h"

namespace kestrune::dxl {

namespace {

/// Keys of one Skip are all texts, or all numbers (of ints, chars and bools, and the addresses of handles).
using Key = std::variant<std::intptr_t, Text>;

struct Entry {
  Value key;
  Value data;
};

struct Skip {
  explicit Skip(bool text_keys) : has_text_keys(text_keys) {}

  bool has_text_keys;
  bool deleted = false;
  std::map<Key, Entry> entries;  // in the order in which loops visit them
  Value current;                 // the key of the entry that the innermost loop has reached
};

Skip& SkipAt(const Call& call, std::size_t i) {
  auto& skip = call.As<Skip>(i);
  if (skip.deleted) throw ScriptError(u"deleted Skip used");
  return skip;
}

std::intptr_t NumberOf(const Value& key) {
  if (key.Kind() == kInt) return key.AsInt();
  if (key.Kind() == kChar) return key.AsChar();
  if (key.Kind() == kBool) return key.AsBool();
  if (IsHandle(key.Kind())) return reinterpret_cast<std::intptr_t>(key.AsHandle().get());
  throw ScriptError(u"a key of this type is not supported in a Skip");
}

/// With `create` DOORS compares the addresses of texts, which finds nothing reliably; so that is refused.
Key KeyAt(const Call& call, const Skip& skip, std::size_t i) {
  const Value& key = call.At(i);
  const bool is_text = key.Kind() == kString;
  if (is_text && !skip.has_text_keys)
    throw ScriptError(u"string key in a Skip that is not made by createString");
  if (!is_text && skip.has_text_keys) throw ScriptError(u"a Skip made by createString needs string keys");
  return is_text ? Key(key.AsText()) : Key(NumberOf(key));
}

Value Put(Call& call) {
  Skip& skip = SkipAt(call, 0);
  return Value(skip.entries.try_emplace(KeyAt(call, skip, 1), Entry{call.At(1), call.At(2)}).second);
}

Value Find(Call& call, bool wants_data) {
  Skip& skip = SkipAt(call, 0);
  const auto found = skip.entries.find(KeyAt(call, skip, 1));
  if (found == skip.entries.end()) return Value(false);
  if (wants_data) call.Set(2, found->second.data);
  return Value(true);
}

Value Delete(Call& call) {
  Skip& skip = SkipAt(call, 0);
  return Value(skip.entries.erase(KeyAt(call, skip, 1)) == 1);
}

Value CurrentKey(Call& call) {
  const Skip& skip = SkipAt(call, 0);
  if (!skip.current.IsAssigned()) throw ScriptError(u"key of a Skip outside a loop over it");
  return skip.current;
}

/// Goes on after the last key whatever the loop's body has done to the entries.
Next Walk(Call& call) {
  SkipAt(call, 0);
  return [skip = call.Share<Skip>(0), last = Key(), started = false](Value& data) mutable {
    if (skip->deleted) throw ScriptError(u"deleted Skip used");
    const auto at = started ? skip->entries.upper_bound(last) : skip->entries.begin();
    started = true;
    if (at == skip->entries.end()) {
      skip->current = Value();
      return false;
    }
    last = at->first;
    skip->current = at->second.key;
    data = at->second.data;
    return true;
  };
}

}  // namespace

void AddSkipPerms(Library& library) {
  library.AddType(u"Skip");
  library.Add(u"Skip create()", [](Call&) { return Value(std::make_shared<Skip>(/*text_keys=*/false)); });
  library.Add(u"Skip createString()",
              [](Call&) { return Value(std::make_shared<Skip>(/*text_keys=*/true)); });
  library.Add(u"bool put(Skip, any, any)", Put);
  library.Add(u"bool find(Skip, any)", [](Call& call) { return Find(call, /*wants_data=*/false); });
  library.Add(u"bool find(Skip, any, any&)", [](Call& call) { return Find(call, /*wants_data=*/true); });
  library.Add(u"bool delete(Skip, any)", Delete);
  library.Add(u"void delete(Skip)", [](Call& call) {
    auto& skip = SkipAt(call, 0);
    skip.deleted = true;
    skip.entries.clear();
    return Value();
  });
  library.Add(u"any key(Skip)", CurrentKey);
  library.AddLoop(u"for any in Skip", Walk);
}

}  // namespace kestrune::dxl
