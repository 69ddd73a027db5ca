// The add-in as its host calls it, however it is reached: directly, or as a COM object.
#pragma once

#include "platform/Automation.h"

namespace kestrune::workbench {

/// What the add-in raises comes out as AutomationError.
class AddInCallbacks {
 public:
  virtual ~AddInCallbacks() = default;

  /// The family under which the host calls the Plexa_ methods; "" when the add-in does not take this host.
  virtual Text Orim_Connect(const Object& repository) = 0;
  virtual void Orim_Disconnect() = 0;
  virtual void Orim_OnPostInitialized(const Object& repository) = 0;
  /// The top entry for an empty name, else the items below it.
  virtual Variant Orim_GetMenuItems(const Object& repository, const Text& location, const Text& menu) = 0;
  virtual void Orim_MenuClick(const Object& repository, const Text& menu, const Text& item) = 0;
  /// True when the package is linked, or unlinked, now.
  virtual bool Plexa_Connect(const Object& repository, std::int32_t package_id, const Text& guid) = 0;
  virtual bool Plexa_Disconnect(const Object& repository, const Text& guid) = 0;
};

}  // namespace kestrune::workbench
