#include "standins/dxl/Library.h"

#include <stdexcept>

#include "standins/dxl/CorePerms.h"

namespace kestrune::dxl {

namespace {

[[noreturn]] void Malformed(TextView signature) {
  throw std::invalid_argument("DXL signature: " + ToUtf8(signature));
}

}  // namespace

Library::Library()
    : types_{{u"any", kAny}, {u"void", kVoid}, {u"bool", kBool},    {u"char", kChar},
             {u"int", kInt}, {u"real", kReal}, {u"string", kString}},
      names_{u"none", u"reference", u"null", u"any",    u"void",  u"bool",
             u"char", u"int",       u"real", u"string", u"handle"} {
  AddCorePerms(*this);
}

Type Library::AddType(TextView name) {
  if (const Type known = FindType(name); known != kNone) return known;
  const Type type{static_cast<std::uint16_t>(names_.size())};
  names_.emplace_back(name);
  types_.emplace(name, type);
  return type;
}

void Library::AddAlias(TextView alias, TextView type) {
  types_.emplace(alias, TypeNamed(type));
}

void Library::AddIdentity(TextView type) {
  const Text both = Text(u"(").append(type).append(u"?, ").append(type).append(u"?)");
  Add(u"bool ==" + both, [](Call& call) { return Value(call.At(0).AsHandle() == call.At(1).AsHandle()); });
  Add(u"bool !=" + both, [](Call& call) { return Value(call.At(0).AsHandle() != call.At(1).AsHandle()); });
}

void Library::Add(TextView signature, Perm perm) {
  const std::size_t open = signature.find(u'(');
  if (open == TextView::npos || signature.back() != u')') Malformed(signature);
  const TextView head = signature.substr(0, open);
  const std::size_t blank = head.rfind(u' ');
  if (blank == TextView::npos) Malformed(signature);

  auto entry = std::make_unique<PermEntry>();
  entry->name = Trim(head.substr(blank));
  entry->result = TypeNamed(Trim(head.substr(0, blank)));
  entry->run = std::move(perm);
  const TextView inner = Trim(signature.substr(open + 1, signature.size() - open - 2));
  if (!inner.empty()) {
    for (const Text& part : Split(inner, u",")) entry->parameters.push_back(ParseParameter(Trim(part)));
  }
  if (entry->name.empty() || entry->parameters.size() > kMaxParameters) Malformed(signature);
  perms_[entry->name].push_back(entry.get());
  entries_.push_back(std::move(entry));
}

Parameter Library::ParseParameter(TextView text) const {
  Parameter parameter;
  if (text.ends_with(u'&')) {
    parameter.by_reference = true;
    text.remove_suffix(1);
  } else if (text.ends_with(u'?')) {
    parameter.may_be_null = true;
    text.remove_suffix(1);
  }
  const bool is_array = text.ends_with(u"[]");
  if (is_array) text.remove_suffix(2);
  parameter.type = TypeNamed(text);
  parameter.type.is_array = is_array;
  return parameter;
}

void Library::AddLoop(TextView signature, Loop start) {
  constexpr TextView kFor = u"for ";
  constexpr TextView kIn = u" in ";
  const std::size_t in = signature.find(kIn);
  if (!signature.starts_with(kFor) || in == TextView::npos) Malformed(signature);
  const Type variable = TypeNamed(signature.substr(kFor.size(), in - kFor.size()));
  loops_.push_back({variable, CollectionNamed(signature.substr(in + kIn.size())), std::move(start)});
}

Type Library::CollectionNamed(TextView text) {
  if (const Type type = FindType(text); type != kNone) return type;
  const std::size_t blank = text.find(u' ');
  const TextView word = text.substr(0, blank);
  const TextView over = blank == TextView::npos ? TextView() : text.substr(blank + 1);
  const Type type = AddType(Text(u"for ").append(text));  // a name with a blank, which no script can declare
  entries_.push_back(std::make_unique<PermEntry>());
  PermEntry& entry = *entries_.back();
  entry.name = word;
  entry.result = type;
  if (over.empty()) {
    entry.run = [everything = std::make_shared<char>()](Call&) { return Value(everything); };
  } else {
    entry.parameters.push_back({TypeNamed(over)});
    entry.run = [](Call& call) { return Value(call.Share<void>(0)); };
  }
  perms_[entry.name].push_back(&entry);
  return type;
}

Type Library::FindType(TextView name) const {
  const auto found = types_.find(name);
  return found == types_.end() ? kNone : found->second;
}

Type Library::TypeNamed(TextView name) const {
  const Type type = FindType(name);
  if (type == kNone) throw std::invalid_argument("DXL type: " + ToUtf8(name));
  return type;
}

Text Library::NameOf(Type type) const {
  return type.is_array ? names_.at(type.id) + u"[]" : names_.at(type.id);
}

const std::vector<const PermEntry*>& Library::Find(TextView name) const {
  static const std::vector<const PermEntry*> none;
  const auto found = perms_.find(name);
  return found == perms_.end() ? none : found->second;
}

const LoopEntry* Library::FindLoop(Type variable, Type collection) const {
  for (const LoopEntry& loop : loops_) {
    if (loop.collection == collection && (loop.variable == variable || loop.variable == kAny)) return &loop;
  }
  return nullptr;
}

}  // namespace kestrune::dxl
