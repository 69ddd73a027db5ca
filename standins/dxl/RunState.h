// What one run of a script keeps beside its variables.
#pragma once

#include <vector>

#include "standins/dxl/Budget.h"
#include "standins/dxl/Containers.h"
#include "standins/dxl/Error.h"
#include "standins/dxl/Host.h"

namespace kestrune::dxl {

/// A piece of a text, [first, end); first is -1 for a group that took no part in the match.
struct Extent {
  int first = -1;
  int end = -1;
};

struct RunState {
  RunState(Host& host, Budget& budget) : host(host), budget(budget) {}

  Host& host;
  Budget& budget;
  Containers containers;
  std::vector<Extent> match;  // of the last regexp application; empty when it failed or there was none
  bool holds_errors = false;  // between noError and lastError
  Text held_error;
};

}  // namespace kestrune::dxl
