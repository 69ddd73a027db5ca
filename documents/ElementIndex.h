// Which row stands for the element of a DOORS object: the
// package's rows, and those of elements that this import made.
#pragma once

#include <optional>
#include <unordered_map>

#include "documents/DataTable.h"

namespace kestrune {

/// Maps an "Object Identifier", a text of one of the two tables, to a row number: rows 1 to the package table's last are the table's own, those
/// beyond are elements created during this import, in the order of their making.
class ElementIndex {
 public:
  explicit ElementIndex(const DataTable& package) : package_(package) {}

  /// Enters a row of the table; returns the row that has the
  /// identifier already, if any, and enters nothing then.
  std::optional<std::size_t> Add(TextView identifier, std::size_t row);
  /// Enters an element that was just created; returns its row number.
  std::size_t AddCreated(TextView identifier, std::int32_t element_id);

  /// The row number that the next created element will have.
  std::size_t NextRow() const { return package_.UpperRow() + created_.size() + 1; }

  std::optional<std::size_t> Find(TextView identifier) const;
  bool IsCreated(std::size_t row) const { return row > package_.UpperRow(); }
  std::int32_t ElementIdOf(std::size_t row) const;

 private:
  const DataTable& package_;
  std::unordered_map<TextView, std::size_t> row_by_identifier_;
  std::vector<std::int32_t> created_;
};

}  // namespace kestrune
