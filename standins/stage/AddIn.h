// An add-in as the host calls it.
#pragma once

#include "platform/Automation.h"

namespace kestrune::standins {

/// What the add-in raises comes out as AutomationError.
class AddIn {
 public:
  /// `object` is reached late-bound, as the host does; it may be a COM object or one of this process.
  explicit AddIn(Object object) : object_(std::move(object)) {}

  /// The family under which the host calls the Plexa_ methods; "" when the add-in does not take this host.
  Text Orim_Connect(const Object& repository) const {
    return object_.Call(u"Orim_Connect", {repository}).ToText();
  }
  void Orim_Disconnect() const { object_.Call(u"Orim_Disconnect"); }
  void Orim_OnPostInitialized(const Object& repository) const {
    object_.Call(u"Orim_OnPostInitialized", {repository});
  }
  /// The top entry for an empty name, else the items below it.
  Variant Orim_GetMenuItems(const Object& repository, const Text& location, const Text& menu) const {
    return object_.Call(u"Orim_GetMenuItems", {repository, location, menu});
  }
  void Orim_MenuClick(const Object& repository, const Text& menu, const Text& item) const {
    object_.Call(u"Orim_MenuClick", {repository, menu, item});
  }
  /// The GUIDs of the linked packages.
  std::vector<Text> Plexa_GetConnectedPackages(const Object& repository) const {
    return object_.Call(u"Plexa_GetConnectedPackages", {repository}).ToTextArray();
  }
  /// True when the package is linked, or unlinked, now.
  bool Plexa_Connect(const Object& repository, std::int32_t package_id, const Text& guid) const {
    return object_.Call(u"Plexa_Connect", {repository, package_id, guid}).ToBool();
  }
  bool Plexa_Disconnect(const Object& repository, const Text& guid) const {
    return object_.Call(u"Plexa_Disconnect", {repository, guid}).ToBool();
  }

 private:
  Object object_;
};

}  // namespace kestrune::standins
