#include "standins/dxl/ChainResolver.h"

namespace kestrune::dxl {

const Meaning& ChainResolver::Range(std::size_t first, std::size_t end) {
  const auto known = ranges_.find({first, end});
  if (known != ranges_.end()) return known->second;
  return ranges_.emplace(std::pair{first, end}, ResolveRange(first, end)).first->second;
}

Meaning ChainResolver::ResolveRange(std::size_t first, std::size_t end) {
  if (first + 1 == end) return expressions_.ResolveArgument(*elements_[first]);
  if (IsFunctionAt(first)) return ResolveCallIn(first, end);
  return ResolveOperator(checking_, elements_[first]->at, u"..", Range(first, first + 1),
                         Range(first + 1, end));
}

/// The function at `first` applied to everything up to `end`, or else to as much as fits, the rest
/// concatenated. If nothing fits, the problem of the longest argument is the one to report.
Meaning ChainResolver::ResolveCallIn(std::size_t first, std::size_t end) {
  const Expr& name = *elements_[first];
  Meaning longest = ResolveCall(checking_, name.at, name.word, {&Range(first + 1, end), 1});
  if (longest) return longest;
  for (std::size_t split = end - 1; split > first + 1; --split) {
    const Meaning& argument = Range(first + 1, split);
    if (!argument) continue;
    const Meaning call = ResolveCall(checking_, name.at, name.word, {&argument, 1});
    Meaning joined = ResolveOperator(checking_, name.at, u"..", call, Range(split, end));
    if (joined) return joined;
  }
  return longest;
}

bool ChainResolver::IsFunctionAt(std::size_t i) const {
  const Expr& element = *elements_[i];
  const bool is_word = element.kind == ExprKind::kName;
  return is_word && !checking_.names.FindVariable(element.word) && IsFunction(checking_, element.word);
}

}  // namespace kestrune::dxl
