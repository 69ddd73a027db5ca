// A package of the model as the host's automation shows it.
#pragma once

#include "standins/host-model/Host.h"
#include "standins/host-model/PackageTable.h"

namespace kestrune::standins {

/// Changes stay in this object until Save.
class PackageObject : public HostObject<PackageObject> {
 public:
  static constexpr const char16_t* kClassName = u"Package";
  static const Members& Table();

  PackageObject(HostPtr host, PackageRow row) : HostObject(std::move(host)), row_(std::move(row)) {}

 private:
  /// What hangs on the package is there only once the package is; throws AutomationError before.
  std::int32_t SavedId() const;
  Variant Element();
  template <typename Collection>
  Variant Children();
  Variant Save(const Args&);

  PackageRow row_;
};

/// The package with that id; throws AutomationError when there is none.
Object PackageById(const HostPtr& host, std::int32_t id);
Object PackageByGuid(const HostPtr& host, TextView guid);

}  // namespace kestrune::standins
