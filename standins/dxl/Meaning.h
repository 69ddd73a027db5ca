// What an expression may mean. DXL overloads by result as well (create, current, ad.dxl), so an expression
// can have several typed readings until its surroundings choose one.
#pragma once

#include <vector>

#include "standins/dxl/Code.h"
#include "standins/dxl/Token.h"

namespace kestrune::dxl {

struct Candidate {
  Type type;
  const Node* node = nullptr;
  const Place* place = nullptr;  // the same node, when it can be assigned to
};

/// The readings, each of another type, or the problem that leaves none.
struct Meaning {
  Meaning(Candidate candidate) : candidates{candidate} {}
  Meaning(Problem problem) : failure(std::move(problem)) {}

  explicit operator bool() const { return !candidates.empty(); }
  const Candidate* Of(Type type) const {
    for (const Candidate& candidate : candidates) {
      if (candidate.type == type) return &candidate;
    }
    return nullptr;
  }

  std::vector<Candidate> candidates;
  Problem failure;  // while there are no candidates
};

}  // namespace kestrune::dxl
