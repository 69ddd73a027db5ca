#include "standins/doors-database/reqif/ExchangeFile.h"

#include <memory>
#include <zip.h>

#include "platform/Files.h"
#include "standins/doors-database/reqif/ReqifNode.h"

namespace kestrune::standins {

namespace {

constexpr std::string_view kZipMark = "PK\x03\x04";
constexpr std::size_t kLargestMember = 1'000'000'000;

struct ZipFreer {
  void operator()(zip_t* archive) const { zip_discard(archive); }
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};
template <typename T>
using Owned = std::unique_ptr<T, ZipFreer>;

Owned<zip_t> OpenArchive(const std::string& bytes, const Text& path) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  if (!source) throw std::bad_alloc();
  Owned<zip_t> archive(zip_open_from_source(source, ZIP_RDONLY, &error));
  if (archive) return archive;
  zip_source_free(source);
  const Text reason = FromUtf8(zip_error_strerror(&error));
  zip_error_fini(&error);
  RefuseFile(path, 0, u"the archive cannot be read: " + reason);
}

/// As it comes: what the archive says of the size may be anything.
std::string ReadMember(zip_t* archive, zip_uint64_t index, const Text& name) {
  constexpr std::size_t kPiece = 1 << 16;
  const Owned<zip_file_t> file(zip_fopen_index(archive, index, 0));
  if (!file) RefuseFile(name, 0, FromUtf8(zip_strerror(archive)));
  std::string bytes;
  for (;;) {
    const std::size_t before = bytes.size();
    bytes.resize(before + kPiece);
    const auto count = zip_fread(file.get(), bytes.data() + before, kPiece);
    if (count < 0) RefuseFile(name, 0, u"the member is damaged or cut short");
    bytes.resize(before + static_cast<std::size_t>(count));
    if (count == 0) return bytes;
    if (bytes.size() > kLargestMember) RefuseFile(name, 0, u"the member is larger than 1 GB");
  }
}

}  // namespace

void ForEachReqifDocument(const Text& path,
                          const std::function<void(const std::string& xml, const Text& name)>& visit) {
  const std::string bytes = ReadFile(path);
  if (!bytes.starts_with(kZipMark)) return visit(bytes, path);
  const auto archive = OpenArchive(bytes, path);
  bool is_empty = true;
  const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(archive.get(), 0));
  for (zip_uint64_t i = 0; i < count; ++i) {
    const char* member = zip_get_name(archive.get(), i, 0);
    if (!member || !std::string_view(member).ends_with(".reqif")) continue;
    const Text name = path + u"!" + FromUtf8(member);
    visit(ReadMember(archive.get(), i, name), name);
    is_empty = false;
  }
  if (is_empty) RefuseFile(path, 0, u"the archive holds no .reqif file");
}

}  // namespace kestrune::standins
