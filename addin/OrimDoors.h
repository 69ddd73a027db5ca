// The add-in as the host sees it: one object whose public methods are the host's callbacks.
#pragma once

#include "doors/Doors.h"
#include "orim/Repository.h"

namespace kestrune {

/// Strings, whole numbers, a text array or empty go back as the host's automation has them: true is -1, false
/// is 0. No state is kept between calls but the connection to DOORS; a package is linked exactly while its
/// link file exists. Failures of the host's automation pass through as AutomationError.
class OrimDoors {
 public:
  explicit OrimDoors(const Platform& platform);

  /// "Plexa", the family under which the host calls the Plexa_ methods; "" for a host that is too old.
  Text Orim_Connect(const orim::Repository& Repository);
  void Orim_Disconnect();
  Variant Orim_OnPostInitialized(const orim::Repository& Repository);
  /// The top-level entry for an empty menu name; an array of items for the submenu; "" for any other name.
  Variant Orim_GetMenuItems(const orim::Repository& Repository, const Text& MenuLocation,
                            const Text& MenuName);
  void Orim_MenuClick(const orim::Repository& Repository, const Text& MenuName, const Text& ItemName);
  void Orim_ShowHelp(const Text& MenuName, const Text& ItemName);

  std::int32_t Plexa_View(const orim::Repository& Repository, const Text& PackageGuid, const Text& CodeID);
  /// Links a package to a module that the user picks: -1, or 0 when the package is
  /// locked or the user gives up.
  std::int32_t Plexa_Connect(const orim::Repository& Repository, std::int32_t PackageID,
                             const Text& PackageGuid);
  Variant Plexa_GetConnectedPackages(const orim::Repository& Repository);
  Variant Plexa_GetProperty(const orim::Repository& Repository, const Text& PackageGuid,
                            const Text& PropertyName);
  /// Unlinks a package; false when the user declines or the package is locked.
  bool Plexa_Disconnect(const orim::Repository& Repository, const Text& PackageGuid);

 private:
  bool IsLinked(const orim::Package& package) const;
  void Import(const orim::Repository& repository);
  void Transfer(const orim::Repository& repository, std::int32_t direction);
  void EditOptions(const orim::Repository& repository);
  void ShowAbout();
  Text IconId() const;

  const Platform& platform_;
  Doors doors_;
};

}  // namespace kestrune
