// Choosing among overloads: the same name for several perms and functions, told apart by their types.
#pragma once

#include <span>

#include "standins/dxl/Meaning.h"
#include "standins/dxl/Scopes.h"
#include "standins/dxl/Unsupported.h"

namespace kestrune::dxl {

/// What the parts of the checker share.
struct Checking {
  Checking(Program& program, const Library& library) : code(program), perms(library), names(program) {}

  Program& code;
  const Library& perms;
  Scopes names;
};

/// Whether calls of `name` have anything to choose from: functions of the script or perms.
bool IsFunction(const Checking& checking, const Text& name);

/// The node that gives `meaning` as a value of `type`: its reading of that type, or null as that
/// type. Null if none.
const Node* ValueOf(Checking& checking, const Meaning& meaning, Type type);

/// Call of a perm only: operators, properties, setters. The meaning has one reading per result type; where
/// several overloads of one result type fit, the first added counts. `problem` is reported if nothing fits.
Meaning ResolvePerm(Checking& checking, Position at, TextView name, std::span<const Meaning> arguments,
                    Text problem);

/// Call of a function of the script or a perm; the script's own come first.
Meaning ResolveCall(Checking& checking, Position at, const Text& name, std::span<const Meaning> arguments);

/// An operator of the base types or of the library; u".." is concatenation.
Meaning ResolveOperator(Checking& checking, Position at, TextView word, const Meaning& left,
                        const Meaning& right);
Meaning ResolvePrefix(Checking& checking, Position at, TextView word, const Meaning& operand);

}  // namespace kestrune::dxl
