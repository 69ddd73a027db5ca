// Where the platform keeps the user's files and the add-in.
#pragma once

#include <optional>

#include "platform/Text.h"

namespace kestrune {

class Folders {
 public:
  virtual ~Folders() = default;
  /// The user's roaming application-data folder, created if need be; nothing when the
  /// platform cannot name it.
  virtual std::optional<Text> RoamingAppData() const = 0;
  /// The user's folder for temporary files, ending in a separator.
  virtual Text Temp() const = 0;
  /// The folder that holds the add-in's file.
  virtual Text AddIn() const = 0;
};

}  // namespace kestrune
