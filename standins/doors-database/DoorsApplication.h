// The automation object through which others drive DOORS.
#pragma once

#include "standins/StandInObject.h"
#include "standins/doors-database/DoorsStandIn.h"

namespace kestrune::standins {

class DoorsApplication : public StandInObject<DoorsApplication> {
 public:
  static constexpr const char16_t* kClassName = u"Doors.Application";
  static const Members& Table();

  explicit DoorsApplication(DoorsStandIn& doors) : doors_(&doors) {}
  /// From now on every use says that DOORS is gone.
  void Disconnect() { doors_ = nullptr; }

 protected:
  void BeforeInvoke(Access access, TextView member) override;

 private:
  DoorsStandIn* doors_;
};

}  // namespace kestrune::standins
