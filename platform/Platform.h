// What the add-in is given of the machine it runs on, as one bundle.
#pragma once

#include "platform/Automation.h"
#include "platform/Desktop.h"
#include "platform/Folders.h"

namespace kestrune {

/// Makes automation objects by their ProgID, such as "Doors.Application".
class ObjectFactory {
 public:
  virtual ~ObjectFactory() = default;
  /// Throws AutomationError when the class is unknown or its object cannot be made.
  virtual Object Create(TextView prog_id) = 0;
};

struct Platform {
  Desktop& desktop;
  const Folders& folders;
  ObjectFactory& objects;
};

}  // namespace kestrune
