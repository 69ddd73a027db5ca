// How documents and synchronisation tell the user what they do.
#pragma once

#include "platform/Text.h"

namespace kestrune {

class ImportProgress {
 public:
  virtual ~ImportProgress() = default;
  /// Adds a line.
  virtual void Progress(const Text& msg) = 0;
  /// Records one change of the item of that display name; changes of one item in a row are grouped.
  virtual void ProgressModify(const Text& ID, const Text& Modification) = 0;
  /// Of the work that the last line names, `done` out of `total` is done. May be called as often as is convenient.
  virtual void ProgressShare(std::size_t done, std::size_t total) = 0;
};

}  // namespace kestrune
