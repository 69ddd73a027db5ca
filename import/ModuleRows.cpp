#include "import/ModuleRows.h"

#include <algorithm>

#include "common/Resources.h"

namespace kestrune {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

enum class Walk : char { kUnseen, kOnPath, kDone };

}  // namespace

ModuleRows::ModuleRows(const DataTable& module) {
  rows_.reserve(module.UpperRow());
  place_.reserve(module.UpperRow());
  for (std::size_t row = 1; row <= module.UpperRow(); ++row) {
    const TextView identifier = module.At(row, column::kIdentifier).AsText();
    if (identifier.empty()) {
      object_warnings_.push_back(FormatResText(text::kNoIdentifier, {module.At(row, column::kKey).ToText()}));
    } else if (place_.contains(identifier)) {
      object_warnings_.push_back(FormatResText(text::kDoubledInModule, {Text(identifier)}));
    } else {
      rows_.push_back({row, identifier, module.At(row, column::kParent).AsText()});
      place_.emplace(identifier, rows_.size() - 1);
    }
  }
  std::vector<std::size_t> parent_of(rows_.size(), kNone);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    parent_of[i] = Find(rows_[i].Parent).value_or(kNone);
    if (parent_of[i] == kNone) rows_[i].Parent = {};
  }
  CutCircles(parent_of);
}

std::optional<std::size_t> ModuleRows::Find(TextView identifier) const {
  const auto found = place_.find(identifier);
  if (found == place_.end()) return std::nullopt;
  return found->second;
}

// Walks up from every row until a row that is known to lead
// to the top; a walk that meets itself has found a circle.
void ModuleRows::CutCircles(const std::vector<std::size_t>& parent_of) {
  std::vector<Walk> state(rows_.size(), Walk::kUnseen);
  std::vector<std::size_t> path;
  for (std::size_t start = 0; start < rows_.size(); ++start) {
    path.clear();
    std::size_t at = start;
    for (; at != kNone && state[at] == Walk::kUnseen; at = parent_of[at]) {
      state[at] = Walk::kOnPath;
      path.push_back(at);
    }
    if (at != kNone && state[at] == Walk::kOnPath) {
      const auto circle = std::find(path.begin(), path.end(), at);
      ModuleRow& first = rows_[*std::min_element(circle, path.end())];
      first.Parent = {};
      parent_warnings_.push_back(FormatResText(text::kParentCycle, {Text(first.Identifier)}));
    }
    for (const std::size_t seen : path) state[seen] = Walk::kDone;
  }
}

}  // namespace kestrune
