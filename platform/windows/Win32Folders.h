// The user's folders as Windows names them.
#pragma once

#include "platform/Folders.h"

namespace kestrune {

class Win32Folders : public Folders {
 public:
  std::optional<Text> RoamingAppData() const override;
  Text Temp() const override;
  Text AddIn() const override;
};

}  // namespace kestrune
