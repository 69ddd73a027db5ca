// What scripts may use besides the language itself: handle types, perms, properties, operators and
// loops, each with a C++ function behind it. A new Library has the perms of the language (strings,
// Skip, Buffer, Regexp, ...).
//
//   Library library;
//   library.AddType(u"Object");
//   library.Add(u"string identifier(Object)",
//               [](Call& call) { return Value(call.As<Record>(0).identifier); });
//   library.Add(u"string oleGet(OleAutoObj, string, string&)", ...);  // call.Set(2, Value(text))
//   library.Add(u"void put(OleAutoArgs, OleAutoObj?)", ...);          // "?": null is welcome
//   library.Add(u"string .name(AttrDef)", ...);                       // the property ad.name
//   library.Add(u"Attr__ .(Object, string)", ...);      // attribute access o."X" and o.variable
//   library.Add(u"string ..(Attr__, string)", ...);     // concatenation o."X" ""
//   library.Add(u"int =(int&, Attr__)", ...);           // int n = o."X"; the perm does call.Set(0, ...)
//   library.Add(u"Module current()", ...);              // m = current, (current Module)
//   library.Add(u"Module current=(Module)", ...);       // current = m, (current ModuleRef__) = m
//   library.AddLoop(u"for Object in entire Module", ...);
//   library.AddLoop(u"for Project in database", ...);
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "standins/dxl/Call.h"
#include "standins/dxl/Error.h"

namespace kestrune::dxl {

struct Parameter {
  Type type;
  bool by_reference = false;
  bool may_be_null = false;  // a handle; otherwise null is refused before the perm runs
};

/// A perm throws ScriptError for a run-time error. Value() is the result of a void one.
using Perm = std::function<Value(Call&)>;

struct PermEntry {
  Text name;
  Type result;
  std::vector<Parameter> parameters;
  Perm run;
};

/// Puts the next element into its argument, or returns false at the end.
using Next = std::function<bool(Value&)>;
/// Starts a loop over argument 0, the collection. The Next must keep alive what it walks.
using Loop = std::function<Next(Call&)>;

struct LoopEntry {
  Type variable;
  Type collection;
  Loop start;
};

class Library {
 public:
  Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// A new handle type. Names are those that scripts write in declarations.
  Type AddType(TextView name);
  /// Another name for a type, such as ModuleRef__ for Module.
  void AddAlias(TextView alias, TextView type);

  /// == and != of handles of the type: whether they are the same one. Types without it have no comparison.
  void AddIdentity(TextView type);

  /// Adds an overload: "result name(type, type&, type?, type[])". The name is a word, an operator
  /// ( .. = += == [] . ), ".word" for a property, "word=" for assignment to a word. Overloads may differ in
  /// the result type alone; the context then decides, and the one added first where it does not. At most
  /// kMaxParameters parameters. A signature with an unknown type or bad form throws std::invalid_argument.
  void Add(TextView signature, Perm perm);

  /// "for Type in Collection", where Collection is a type, a word with a type ("entire Module": the perm
  /// entire is added as well) or a word alone ("database").
  void AddLoop(TextView signature, Loop start);

  static constexpr std::size_t kMaxParameters = 6;

  // For the compiler.

  /// kNone for a name that is no type.
  Type FindType(TextView name) const;
  Text NameOf(Type type) const;
  /// The overloads of `name` in the order they were added.
  const std::vector<const PermEntry*>& Find(TextView name) const;
  /// Null when there is no such loop.
  const LoopEntry* FindLoop(Type variable, Type collection) const;

 private:
  Type TypeNamed(TextView name) const;
  Type CollectionNamed(TextView text);
  Parameter ParseParameter(TextView text) const;

  std::map<Text, Type, std::less<>> types_;
  std::vector<Text> names_;  // by type id
  std::vector<std::unique_ptr<PermEntry>> entries_;
  std::map<Text, std::vector<const PermEntry*>, std::less<>> perms_;
  std::vector<LoopEntry> loops_;
};

}  // namespace kestrune::dxl
