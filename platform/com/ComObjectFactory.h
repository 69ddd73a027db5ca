// Makes the automation objects of other programs by their ProgID.
#pragma once

#include "platform/Platform.h"

namespace kestrune {

class ComObjectFactory : public ObjectFactory {
 public:
  /// Starts the object's program if it is not running.
  Object Create(TextView prog_id) override;
};

}  // namespace kestrune
