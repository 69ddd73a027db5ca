// A place in the source text that counts lines and columns as it moves on.
#pragma once

#include "standins/dxl/Token.h"

namespace kestrune::dxl {

class Cursor {
 public:
  explicit Cursor(TextView source) : source_(source) {}

  bool AtEnd() const { return offset_ >= source_.size(); }
  Position At() const { return at_; }
  /// The character `ahead` of the place, 0 beyond the end.
  char16_t Peek(std::size_t ahead = 0) const {
    return offset_ + ahead < source_.size() ? source_[offset_ + ahead] : u'\0';
  }
  bool Looks(TextView text) const { return source_.substr(offset_, text.size()) == text; }

  char16_t Take() {
    const char16_t c = source_[offset_++];
    if (c == u'\n') {
      ++at_.line;
      at_.column = 1;
    } else {
      ++at_.column;
    }
    return c;
  }
  /// Moves past `text` if it stands here.
  bool Skip(TextView text) {
    if (!Looks(text)) return false;
    for (std::size_t i = 0; i < text.size(); ++i) Take();
    return true;
  }
  /// Moves past the characters for which `accept` holds and returns them.
  template <typename Accept>
  TextView TakeWhile(Accept accept) {
    const std::size_t start = offset_;
    while (!AtEnd() && accept(source_[offset_])) Take();
    return source_.substr(start, offset_ - start);
  }

 private:
  TextView source_;
  std::size_t offset_ = 0;
  Position at_{1, 1};
};

}  // namespace kestrune::dxl
