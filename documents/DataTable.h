// The form in which both documents hand on their content, so that they can be compared column by column.
#pragma once

#include <memory>

#include "platform/Automation.h"

namespace kestrune {

/// A value of a table: nothing, a number, or a text that somebody else holds.
class Cell {
 public:
  Cell() : number_(0), size_(kNothing) {}
  explicit Cell(double number) : number_(number), size_(kNumber) {}
  explicit Cell(TextView text) : text_(text.data()), size_(text.size()) {}

  bool IsEmpty() const { return size_ == kNothing; }
  bool IsText() const { return size_ < kNumber; }
  /// "" for what is no text.
  TextView AsText() const { return IsText() ? TextView(text_, size_) : TextView(); }

  /// As automation has and converts it.
  operator Variant() const;
  Text ToText() const { return Variant(*this).ToText(); }
  std::int32_t ToInt() const { return Variant(*this).ToInt(); }

  /// As Variants compare.
  friend bool operator==(const Cell& a, const Cell& b) {
    if (a.IsText() || b.IsText()) return a.size_ != kNumber && b.size_ != kNumber && a.AsText() == b.AsText();
    return a.number_ == b.number_;
  }

 private:
  static constexpr std::size_t kNothing = static_cast<std::size_t>(-1);
  static constexpr std::size_t kNumber = kNothing - 1;

  union {
    const char16_t* text_;
    double number_;
  };
  std::size_t size_;  // of the text; beyond any text's: what there is instead
};

/// Keeps texts where they are put, without a piece of memory for each.
class TextPool {
 public:
  TextView Add(TextView text);

 private:
  std::vector<std::unique_ptr<char16_t[]>> blocks_;
  char16_t* free_ = nullptr;
  std::size_t left_ = 0;  // units from there on
};

/// Cells indexed (row, column). Row 0 stays empty; rows 1 to UpperRow() are objects or elements. Column 0
/// is the row's key, columns 1 and up are the requested fields in the order of their requests.
class DataTable {
 public:
  explicit DataTable(std::size_t upper_column = 0);

  std::size_t UpperRow() const { return row_count_ - 1; }
  const Cell& At(std::size_t row, std::size_t column) const {
    return blocks_[row / kRowsPerBlock][row % kRowsPerBlock * width_ + column];
  }

  /// Adds a row of empty cells; answers its number.
  std::size_t AddRow();
  void Put(std::size_t row, std::size_t column, double number) { Mutable(row, column) = Cell(number); }
  /// Puts the text as it is stored and shown, with CR LF for a line end.
  void PutText(std::size_t row, std::size_t column, TextView text);
  /// Puts a value of another cell of this table.
  void Share(std::size_t row, std::size_t column, const Cell& cell) { Mutable(row, column) = cell; }

 private:
  static constexpr std::size_t kRowsPerBlock = 64;

  Cell& Mutable(std::size_t row, std::size_t column) { return const_cast<Cell&>(At(row, column)); }

  std::size_t width_;
  std::size_t row_count_ = 0;
  std::vector<std::unique_ptr<Cell[]>> blocks_;
  TextPool texts_;
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
