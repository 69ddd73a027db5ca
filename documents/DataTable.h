// The form in which both documents hand on their content, so that they can be compared column by column.
#pragma once

#include "platform/Automation.h"

namespace kestrune {

/// Variants indexed (row, column). Row 0 stays empty; rows 1 to UpperRow() are objects or elements. Column 0
/// is the row's key, columns 1 and up are the requested fields in the order of their requests.
class DataTable {
 public:
  DataTable() : DataTable(0, 0) {}
  DataTable(std::size_t upper_row, std::size_t upper_column)
      : upper_row_(upper_row), upper_column_(upper_column), cells_((upper_row + 1) * (upper_column + 1)) {}

  std::size_t UpperRow() const { return upper_row_; }
  Variant& At(std::size_t row, std::size_t column) { return cells_[row * (upper_column_ + 1) + column]; }
  const Variant& At(std::size_t row, std::size_t column) const {
    return cells_[row * (upper_column_ + 1) + column];
  }
  /// The cell's text without a copy; "" for an empty cell. For columns that hold texts only.
  TextView TextAt(std::size_t row, std::size_t column) const {
    const Variant& cell = At(row, column);
    return cell.IsText() ? TextView(cell.AsText()) : TextView();
  }

 private:
  std::size_t upper_row_;
  std::size_t upper_column_;
  std::vector<Variant> cells_;
};

/// The columns that both tables have in common.
namespace column {
inline constexpr std::size_t kKey = 0;  // absolute number, or the host's element id
inline constexpr std::size_t kIdentifier = 1;
inline constexpr std::size_t kLevel = 2;
inline constexpr std::size_t kParent = 3;  // the parent's identifier, "" at the top
inline constexpr std::size_t kPosition = 4;
inline constexpr std::size_t kFirstMapped = 5;
}  // namespace column

}  // namespace kestrune
