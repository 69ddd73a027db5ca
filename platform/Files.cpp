#include "platform/Files.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/Automation.h"
#include "platform/ResourceStore.h"

namespace kestrune {

namespace {

[[noreturn]] void ThrowFileFailure(int text_id, TextView path) {
  throw AutomationError(error::kFileFailure, u"Kestrune", StoredString(text_id, path));
}

}  // namespace

std::filesystem::path ToPath(TextView path) {
  return std::filesystem::path(path);
}

Text FromPath(const std::filesystem::path& path) {
  return path.u16string();
}

Text NativePath(TextView path) {
  Text native(path);
  std::replace(native.begin(), native.end(), u'\\', char16_t(std::filesystem::path::preferred_separator));
  return native;
}

bool IsFile(TextView path) {
  std::error_code failure;
  const auto status = std::filesystem::status(ToPath(path), failure);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

bool IsFolder(TextView path) {
  std::error_code failure;
  return std::filesystem::is_directory(ToPath(path), failure);
}

std::string ReadFile(TextView path) {
  std::error_code failure;
  const auto size = std::filesystem::file_size(ToPath(path), failure);
  std::ifstream file(ToPath(path), std::ios::binary);
  if (failure || !file) ThrowFileFailure(stored::kCannotRead, path);
  std::string bytes(size, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(size));
  if (!file) ThrowFileFailure(stored::kCannotRead, path);
  return bytes;
}

void WriteFile(TextView path, std::string_view bytes) {
  std::ofstream file(ToPath(path), std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) ThrowFileFailure(stored::kCannotWrite, path);
}

void RemoveFile(TextView path) {
  std::error_code failure;
  if (!std::filesystem::remove(ToPath(path), failure)) ThrowFileFailure(stored::kCannotDelete, path);
}

std::vector<Text> ListFolder(TextView path) {
  std::vector<Text> names;
  std::error_code failure;
  for (const auto& entry : std::filesystem::directory_iterator(ToPath(path), failure))
    names.push_back(FromPath(entry.path().filename()));
  return names;
}

}  // namespace kestrune
