// What several dialogs and documents share: where the add-in keeps its files, the link file that makes a
// package a linked one, the dialogs' font, rich text, message boxes. Nothing is remembered between calls.
#pragma once

#include "common/Resources.h"
#include "orim/Repository.h"
#include "platform/Controls.h"
#include "platform/Platform.h"
#include "platform/Xml.h"

namespace kestrune {

/// The add-in's own folder below the user's application data, made if need be, ending in a separator; "" when
/// the platform knows no such folder. A folder that cannot be made is told to the user and its path returned
/// all the same.
Text GetDataFolder(const Platform& platform);

/// The link file of a package: named by the package's GUID, braces and all; "" when there is no data folder.
///
///   <DoorsConnection><ModelPath>full path of the DOORS module</ModelPath></DoorsConnection>
///
/// A package is linked exactly while this file exists.
Text GetLinkFilePath(const Platform& platform, TextView package_guid);

/// Writes the link file, replacing an earlier one; false when it cannot be written.
bool SaveLinkFile(const Platform& platform, TextView package_guid, TextView module_path);

/// The module path of the link file, or "" when there is no such file or no path in it.
Text GetLinkModulePath(const Platform& platform, TextView package_guid);

/// The GUIDs of all linked packages as an array of texts in the folder's order; empty when there are none.
Variant GetConnectedPackages(const Platform& platform);

/// Gives the form and its controls the font that the string table names for its language, with the Japanese
/// character set whatever the font; the neutral table names none.
void ApplyStandardFont(Form& form);
void ApplyFont(Form& form, const Text& font_entry);

/// Copies the export file at `path` without the control characters that no XML parser accepts (all bytes
/// below 32 but tab, line feed and carriage return), replacing an earlier copy; returns the copy's path.
Text CleanExportFile(const Platform& platform, const Text& path);

/// What the user is told of an XML file that cannot be read.
Text CannotReadXml(const Text& path);

/// True when `text` begins as rich text does.
bool IsRtf(TextView text);
/// Rich text in the host's notes format, without the line break that the conversion ends with.
Text RtfToNotes(const orim::Repository& repository, const Text& text);

/// A message box with OK under the add-in's title.
void ShowMessage(Desktop& desktop, Text body, Icon icon);
/// A question with Yes and No under the add-in's title; true for Yes.
bool AskYesNo(Desktop& desktop, Text body, Icon icon);

/// Tells the user and returns true when the package is locked.
bool RefuseLocked(Desktop& desktop, const orim::Package& package);

}  // namespace kestrune
