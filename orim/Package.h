// A package of the host's model; its lock and its tagged values are those of the element that stands for it.
#pragma once

#include "orim/Element.h"

namespace kestrune::orim {

class Package : public Handle {
 public:
  using Handle::Handle;
  std::int32_t PackageID() const { return GetInt(member::kPackageId); }
  Text PackageGuid() const { return GetText(member::kPackageGuid); }
  Text Name() const { return GetText(member::kName); }
  orim::Element Element() const { return orim::Element(GetObject(member::kElement)); }
  Collection<Package> Packages() const { return Collection<Package>(GetObject(member::kPackages)); }
  Collection<orim::Element> Elements() const {
    return Collection<orim::Element>(GetObject(member::kElements));
  }
  /// What the host remembers of a package's add-in.
  void ClearFlags() const { object().Put(member::kFlags, u""); }
  void Save() const { object().Call(member::kSave); }
};

}  // namespace kestrune::orim
