// The add-in as an automation object of this process, as COM would hand it to the host.
#pragma once

#include "addin/OrimDoors.h"
#include "standins/StandInObject.h"

namespace kestrune::workbench {

class AddInObject : public standins::StandInObject<AddInObject> {
 public:
  static constexpr const char16_t* kClassName = u"Kestrune.OrimDoors";
  static const Members& Table();

  explicit AddInObject(const Platform& platform) : add_in_(platform) {}

 private:
  OrimDoors add_in_;
};

}  // namespace kestrune::workbench
