// What several dialogs and documents share: the dialogs' font, the clean copy of an export file, rich text,
// message boxes. Nothing is remembered between calls.
#pragma once

#include "common/Resources.h"
#include "orim/Repository.h"
#include "platform/Controls.h"
#include "platform/Platform.h"

namespace kestrune {

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
