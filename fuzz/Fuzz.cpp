#include "fuzz/Fuzz.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

#include "platform/Files.h"

namespace kestrune::fuzz {

namespace {

class Folder {
 public:
  Folder() { std::filesystem::create_directories(ToPath(path)); }
  ~Folder() { std::filesystem::remove_all(ToPath(path)); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const Text path = FromPath(std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(getpid())));
};

}  // namespace

void Require(bool met, const char* requirement) {
  if (met) return;
  std::fprintf(stderr, "not met: %s\n", requirement);
  std::abort();
}

const Text& Scratch() {
  static const Folder folder;
  return folder.path;
}

const Text& FileOf(std::string_view input) {
  static const Text file = Scratch() + u"/input";
  WriteFile(file, input);
  return file;
}

Halves SplitLine(std::string_view input) {
  const std::size_t end = input.find('\n');
  return end == std::string_view::npos ? Halves{input, {}}
                                       : Halves{input.substr(0, end), input.substr(end + 1)};
}

}  // namespace kestrune::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  kestrune::fuzz::Fuzz({reinterpret_cast<const char*>(data), size});
  return 0;
}
