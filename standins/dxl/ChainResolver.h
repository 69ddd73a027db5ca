// Words side by side: calls without parentheses, calls with one argument, concatenations and regexp
// applications all look alike. A chain is read from the right; a function takes as much of what follows as
// its types allow:
//
//   print lower(a) "-" b      print(lower(a "-" b))      lower takes a string, and all of that is one
//   print identifier(o) "\n"  print(identifier(o) "\n")  identifier takes an Object, which `o "\n"` is not
#pragma once

#include <map>

#include "standins/dxl/ExpressionChecker.h"

namespace kestrune::dxl {

class ChainResolver {
 public:
  ChainResolver(Checking& checking, ExpressionChecker& expressions, const std::vector<ExprPtr>& elements)
      : checking_(checking), expressions_(expressions), elements_(elements) {}

  Meaning Resolve() { return Range(0, elements_.size()); }

 private:
  /// What the elements [first, end) mean together; worked out once for each range.
  const Meaning& Range(std::size_t first, std::size_t end);
  Meaning ResolveRange(std::size_t first, std::size_t end);
  Meaning ResolveCallIn(std::size_t first, std::size_t end);
  bool IsFunctionAt(std::size_t i) const;

  Checking& checking_;
  ExpressionChecker& expressions_;
  const std::vector<ExprPtr>& elements_;
  std::map<std::pair<std::size_t, std::size_t>, Meaning> ranges_;
};

}  // namespace kestrune::dxl
