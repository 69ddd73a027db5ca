#include "documents/DataTable.h"

namespace kestrune {

namespace {

constexpr std::size_t kBlock = 32768;       // units
constexpr std::size_t kLarge = kBlock / 8;  // units; such a text has a block of its own

}  // namespace

Cell::operator Variant() const {
  if (IsText()) return AsText();
  return IsEmpty() ? Variant() : Variant(number_);
}

TextView TextPool::Add(TextView text) {
  const auto make_block = [this](std::size_t size) {
    return blocks_.emplace_back(std::make_unique_for_overwrite<char16_t[]>(size)).get();
  };
  char16_t* place = nullptr;
  if (text.size() > kLarge) {
    place = make_block(text.size());
  } else {
    if (text.size() > left_) {
      free_ = make_block(kBlock);
      left_ = kBlock;
    }
    place = free_;
    free_ += text.size();
    left_ -= text.size();
  }
  text.copy(place, text.size());
  return {place, text.size()};
}

DataTable::DataTable(std::size_t upper_column) : width_(upper_column + 1) {
  AddRow();
}

std::size_t DataTable::AddRow() {
  if (row_count_ % kRowsPerBlock == 0) blocks_.push_back(std::make_unique<Cell[]>(kRowsPerBlock * width_));
  return row_count_++;
}

void DataTable::PutText(std::size_t row, std::size_t column, TextView text) {
  Mutable(row, column) = Cell(texts_.Add(HasLineFeed(text) ? TextView(WidenLineFeeds(Text(text))) : text));
}

}  // namespace kestrune
