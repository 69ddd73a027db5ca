#include "documents/ElementIndex.h"

namespace kestrune {

std::optional<std::size_t> ElementIndex::Add(TextView identifier, std::size_t row) {
  const auto [entry, is_new] = row_by_identifier_.emplace(identifier, row);
  if (is_new) return std::nullopt;
  return entry->second;
}

std::size_t ElementIndex::AddCreated(TextView identifier, std::int32_t element_id) {
  const std::size_t row = NextRow();
  created_.push_back(element_id);
  row_by_identifier_.emplace(identifier, row);
  return row;
}

std::optional<std::size_t> ElementIndex::Find(TextView identifier) const {
  const auto found = row_by_identifier_.find(identifier);
  if (found == row_by_identifier_.end()) return std::nullopt;
  return found->second;
}

std::int32_t ElementIndex::ElementIdOf(std::size_t row) const {
  if (IsCreated(row)) return created_[row - package_.UpperRow() - 1];
  return package_.At(row, column::kKey).ToInt();
}

}  // namespace kestrune
