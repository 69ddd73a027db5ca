// The add-in as a COM object, late-bound, as the host reaches it.
#pragma once

#include "workbench/stage/AddInCallbacks.h"

namespace kestrune::workbench {

/// Made by its ProgID through the registry. As the host does, it passes every argument by reference.
class AddInClient : public AddInCallbacks {
 public:
  /// Throws AutomationError when the class is not registered or does not load.
  explicit AddInClient(TextView prog_id = u"Kestrune.OrimDoors");

  Text Orim_Connect(const Object& repository) override;
  void Orim_Disconnect() override;
  void Orim_OnPostInitialized(const Object& repository) override;
  Variant Orim_GetMenuItems(const Object& repository, const Text& location, const Text& menu) override;
  void Orim_MenuClick(const Object& repository, const Text& menu, const Text& item) override;
  bool Plexa_Connect(const Object& repository, std::int32_t package_id, const Text& guid) override;
  bool Plexa_Disconnect(const Object& repository, const Text& guid) override;

 private:
  Object add_in_;
};

}  // namespace kestrune::workbench
