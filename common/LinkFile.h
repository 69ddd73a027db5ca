// The link file, which makes a package a linked one, and the folder that holds all of them. Nothing is
// remembered between calls: what is linked is looked up each time.
#pragma once

#include "platform/Platform.h"

namespace kestrune {

/// The add-in's own folder below the user's application data, made if need be, ending in a separator; "" when
/// the platform knows no such folder. A folder that cannot be made is told to the user, once in a callback,
/// and its path returned all the same.
Text GetDataFolder(const Platform& platform);

/// The link file of a package: named by the package's GUID, braces and all; "" when there is no data folder.
///
///   <DoorsConnection><ModelPath>full path of the DOORS module</ModelPath></DoorsConnection>
///
/// A package is linked exactly while this file exists.
Text GetLinkFilePath(const Platform& platform, TextView package_guid);

/// Writes the link file whole, replacing an earlier one; false, with that one kept, when it cannot be written.
bool SaveLinkFile(const Platform& platform, TextView package_guid, TextView module_path);

/// The module path of the link file, or "" when there is no such file or no path in it.
Text GetLinkModulePath(const Platform& platform, TextView package_guid);

/// The GUIDs of all linked packages as an array of texts in the folder's order; empty when there are none.
Variant GetConnectedPackages(const Platform& platform);

}  // namespace kestrune
