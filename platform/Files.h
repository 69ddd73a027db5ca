// Files and folders by their text paths. Every failure is an AutomationError
// error::kFileFailure that names the path.
#pragma once

#include <filesystem>

#include "platform/Text.h"

namespace kestrune {

/// `path` as the system's own type, for the calls of <filesystem>.
std::filesystem::path ToPath(TextView path);
Text FromPath(const std::filesystem::path& path);

/// `path`, written with back slashes, in the separators of this platform.
Text NativePath(TextView path);

/// True when `path` exists and is not a folder.
bool IsFile(TextView path);
bool IsFolder(TextView path);

std::string ReadFile(TextView path);
/// Writes the whole file, replacing an earlier one.
void WriteFile(TextView path, std::string_view bytes);
/// Deletes a file; one that is not there is a failure.
void RemoveFile(TextView path);
/// The names in a folder, in the platform's own order; none when the folder cannot be read.
std::vector<Text> ListFolder(TextView path);

}  // namespace kestrune
