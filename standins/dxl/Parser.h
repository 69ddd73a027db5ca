// Statements: the outermost part of the parser.
#pragma once

#include "standins/dxl/Ast.h"

namespace kestrune::dxl {

class Library;

/// The statements of a script. The library tells which names are types. Throws Problem at the first syntax
/// error and at what the language has but this interpreter does not.
std::vector<StmtPtr> Parse(TextView source, const Library& library);

}  // namespace kestrune::dxl
