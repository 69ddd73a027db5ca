#include "standins/doors-database/reqif/ExchangeFile.h"

#include <memory>
#include <zip.h>

#include "platform/Files.h"
#include "standins/doors-database/reqif/ReqifNode.h"

namespace kestrune::standins {

namespace {

constexpr std::string_view kZipMark = "PK\x03\x04";
constexpr zip_uint64_t kLargestMember = 2'000'000'000;

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

std::string ReadMember(zip_t* archive, zip_uint64_t index, const Text& name) {
  zip_stat_t info;
  if (zip_stat_index(archive, index, 0, &info) != 0 || !(info.valid & ZIP_STAT_SIZE))
    RefuseFile(name, 0, u"the archive does not say how large the member is");
  if (info.size > kLargestMember) RefuseFile(name, 0, u"the member is too large");
  const Owned<zip_file_t> file(zip_fopen_index(archive, index, 0));
  if (!file) RefuseFile(name, 0, FromUtf8(zip_strerror(archive)));
  std::string bytes(info.size, '\0');
  const auto count = zip_fread(file.get(), bytes.data(), bytes.size());
  if (count < 0 || static_cast<zip_uint64_t>(count) != info.size)
    RefuseFile(name, 0, u"the member is damaged or cut short");
  return bytes;
}

}  // namespace

std::vector<ReqifDocument> ReadReqifDocuments(const Text& path) {
  std::string bytes = ReadFile(path);
  if (!bytes.starts_with(kZipMark)) return {{path, std::move(bytes)}};
  const auto archive = OpenArchive(bytes, path);
  std::vector<ReqifDocument> documents;
  const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(archive.get(), 0));
  for (zip_uint64_t i = 0; i < count; ++i) {
    const char* member = zip_get_name(archive.get(), i, 0);
    if (!member || !std::string_view(member).ends_with(".reqif")) continue;
    const Text name = path + u"!" + FromUtf8(member);
    documents.push_back({name, ReadMember(archive.get(), i, name)});
  }
  if (documents.empty()) RefuseFile(path, 0, u"the archive holds no .reqif file");
  return documents;
}

}  // namespace kestrune::standins
