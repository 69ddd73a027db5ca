// The lines that an import shows.
#pragma once

#include <optional>

#include "platform/Text.h"

namespace kestrune {

/// Changes of one item in a row are grouped under its name:
///
///      REQ-7: ... Status: open --> closed        an item with one change
///      REQ-12:                                   an item with several
///       ... Status: open --> closed
///       ... Phase: 1.0 --> 2.0
class ImportLines {
 public:
  /// Both return the number of the first line that is new or reads otherwise than before; the lines between
  /// that one and the new ones at the end stay as they are.
  std::size_t Add(Text line);
  std::size_t AddChange(const Text& item, const Text& change);

  const std::vector<Text>& All() const { return lines_; }
  /// How many lines, from the first on, will never read otherwise.
  std::size_t Settled() const;

 private:
  bool IsOpenGroupOf(const Text& head) const;

  std::vector<Text> lines_;
  std::optional<std::size_t> open_group_;  // the line that heads the group of changes made last
};

}  // namespace kestrune
