// A file in the making: it gets its name when it is whole, so that a command that is cut off leaves nothing
// that is in the way of the next one.
#pragma once

#include <filesystem>

namespace kestrune::workbench {

class NewFile {
 public:
  explicit NewFile(std::filesystem::path path) : path_(std::move(path)), draft_(path_) {
    draft_ += ".part";
    RemoveDraft();
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() { RemoveDraft(); }

  /// Where to write it.
  const std::filesystem::path& Draft() const { return draft_; }
  /// To be called when it is written and closed.
  void Finish() { std::filesystem::rename(draft_, path_); }

 private:
  /// With what a database puts beside its file.
  void RemoveDraft() const {
    for (const char* beside : {"", "-journal", "-wal", "-shm"}) {
      std::error_code ignored;
      std::filesystem::path file = draft_;
      std::filesystem::remove(file += beside, ignored);
    }
  }

  std::filesystem::path path_;
  std::filesystem::path draft_;
};

}  // namespace kestrune::workbench
