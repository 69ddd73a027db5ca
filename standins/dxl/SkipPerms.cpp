#include <map>
#include <variant>

#include "standins/dxl/CorePerms.h"
#include "standins/dxl/Library.h"
#include "standins/dxl/RunState.h"

namespace kestrune::dxl {

namespace {

/// Keys of one Skip are all texts, or all numbers (of ints, chars and bools, and the addresses of handles).
using Key = std::variant<std::intptr_t, Text>;

struct Entry {
  Value key;
  Value data;
};

constexpr std::size_t kEntryBytes = sizeof(Key) + sizeof(Entry) + 64;

std::size_t BytesFor(const Key& key) {
  const Text* text = std::get_if<Text>(&key);
  return kEntryBytes + (text ? BytesOf(*text) : 0);
}

struct Skip final : Container {
  Skip(Containers& all, bool text_keys) : Container(all), has_text_keys(text_keys), lease(sizeof(Skip)) {}
  ~Skip() override { Clear(); }

  void Clear() override {
    std::vector<Value> values;
    values.reserve(2 * entries.size());
    for (auto& [key, entry] : entries) {
      values.push_back(std::move(entry.key));
      values.push_back(std::move(entry.data));
    }
    entries.clear();
    lease.Resize(sizeof(Skip));
    all_.Bury(std::move(values));
  }

  bool has_text_keys;
  bool deleted = false;
  int loops = 0;                 // that go over it now
  std::map<Key, Entry> entries;  // in the order in which loops visit them
  Value current;                 // the key of the entry that the innermost loop has reached
  Lease lease;
};

Skip& SkipAt(const Call& call, std::size_t i) {
  auto& skip = *static_cast<Skip*>(&call.As<Container>(i));
  if (skip.deleted) throw ScriptError(u"deleted Skip used");
  return skip;
}

Skip& ChangeableSkipAt(const Call& call, std::size_t i) {
  Skip& skip = SkipAt(call, i);
  if (skip.loops > 0) throw ScriptError(u"a Skip cannot be changed inside a loop over it");
  return skip;
}

Value NewSkip(Call& call, bool text_keys) {
  return Value(std::shared_ptr<Container>(std::make_shared<Skip>(call.State().containers, text_keys)));
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
  if (is_text) call.State().budget.SpendOn(key.AsText().size());
  return is_text ? Key(key.AsText()) : Key(NumberOf(key));
}

Value Put(Call& call) {
  Skip& skip = ChangeableSkipAt(call, 0);
  Key key = KeyAt(call, skip, 1);
  const std::size_t bytes = BytesFor(key);
  const bool is_new = skip.entries.try_emplace(std::move(key), Entry{call.At(1), call.At(2)}).second;
  if (is_new) skip.lease.Grow(bytes);
  return Value(is_new);
}

Value Find(Call& call, bool wants_data) {
  Skip& skip = SkipAt(call, 0);
  const auto found = skip.entries.find(KeyAt(call, skip, 1));
  if (found == skip.entries.end()) return Value(false);
  if (wants_data) call.Set(2, found->second.data);
  return Value(true);
}

Value Delete(Call& call) {
  Skip& skip = ChangeableSkipAt(call, 0);
  const auto found = skip.entries.find(KeyAt(call, skip, 1));
  if (found == skip.entries.end()) return Value(false);
  skip.lease.Shrink(BytesFor(found->first));
  const auto taken_out = skip.entries.extract(found);
  return Value(true);
}

Value CurrentKey(Call& call) {
  const Skip& skip = SkipAt(call, 0);
  if (!skip.current.IsAssigned()) throw ScriptError(u"key of a Skip outside a loop over it");
  return skip.current;
}

/// One loop over a Skip. When it ends, however that comes, no key is the current one.
class Walk {
 public:
  explicit Walk(std::shared_ptr<Container> skip)
      : kept_(std::move(skip)), skip_(*static_cast<Skip*>(kept_.get())), at_(skip_.entries.begin()) {
    ++skip_.loops;
  }
  Walk(const Walk&) = delete;
  Walk& operator=(const Walk&) = delete;
  ~Walk() {
    --skip_.loops;
    skip_.current = Value();
  }

  bool Next(Value& data) {
    if (at_ == skip_.entries.end()) return false;
    skip_.current = at_->second.key;
    data = at_->second.data;
    ++at_;
    return true;
  }

 private:
  std::shared_ptr<Container> kept_;
  Skip& skip_;
  std::map<Key, Entry>::const_iterator at_;
};

Next StartWalk(Call& call) {
  SkipAt(call, 0);
  return [walk = std::make_shared<Walk>(call.Share<Container>(0))](Value& data) { return walk->Next(data); };
}

}  // namespace

void AddSkipPerms(Library& library) {
  library.AddType(u"Skip");
  library.Add(u"Skip create()", [](Call& call) { return NewSkip(call, /*text_keys=*/false); });
  library.Add(u"Skip createString()", [](Call& call) { return NewSkip(call, /*text_keys=*/true); });
  library.Add(u"bool put(Skip, any, any)", Put);
  library.Add(u"bool find(Skip, any)", [](Call& call) { return Find(call, /*wants_data=*/false); });
  library.Add(u"bool find(Skip, any, any&)", [](Call& call) { return Find(call, /*wants_data=*/true); });
  library.Add(u"bool delete(Skip, any)", Delete);
  library.Add(u"void delete(Skip)", [](Call& call) {
    Skip& skip = ChangeableSkipAt(call, 0);
    skip.deleted = true;
    skip.Clear();
    return Value();
  });
  library.Add(u"any key(Skip)", CurrentKey);
  library.AddLoop(u"for any in Skip", StartWalk);
}

}  // namespace kestrune::dxl
