// The outline numbers of a module's objects, such as 2.1.1-0.1.
#pragma once

#include "standins/doors-database/ModuleContent.h"

namespace kestrune::standins {

/// By place. Headings count 1, 2, 3 below their parent ("2.1"); the other objects below a heading count apart
/// from them
/// ("2.1-0.1"); what lies below one of those goes on with a dot ("2.1-0.1.1"). Deleted objects take no
/// number, and get none, unless they are shown.
std::vector<Text> OutlineNumbers(const ModuleContent& content, bool show_deleted);

}  // namespace kestrune::standins
