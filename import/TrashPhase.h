// The first phase of an import: elements whose object has gone move into the trash package, those whose object has come
// back leave it.
#pragma once

#include <functional>
#include <unordered_map>
#include <unordered_set>

#include "documents/ElementIndex.h"
#include "documents/ImportProgress.h"
#include "documents/OrimDoc.h"

namespace kestrune {

/// Everything is looked at before anything moves: what is locked, or would have to leave something locked behind, stays
/// where it is, and the user is told.
class TrashPhase {
 public:
  TrashPhase(orim::Repository repository, orim::Package package, OrimDoc& orim_doc, const ElementIndex& index,
             ImportProgress& progress)
      : repository_(std::move(repository)),
        package_(std::move(package)),
        orim_doc_(orim_doc),
        index_(index),
        progress_(progress) {}

  /// `is_matched` says for each row whether the module has its object.
  void Run(const orim::Package& trash, const std::vector<bool>& is_matched);

  /// Rows by what became of them.
  const std::vector<std::size_t>& Archived() const { return archived_; }
  const std::vector<std::size_t>& Restored() const { return restored_; }
  /// Rows that stay in the trash although their object is there.
  const std::unordered_set<std::size_t>& StuckInTrash() const { return stuck_in_trash_; }

 private:
  void LookAt(std::size_t row, bool is_archived);
  /// What stays keeps its children, and they theirs.
  void KeepChildrenOfWhatStays();
  std::vector<std::int32_t> ChildrenOf(std::int32_t element_id) const;
  void DetachChildren(std::int32_t element_id) const;
  void WarnOfMany(std::size_t living) const;
  void Move(std::size_t row, std::int32_t package_id, int line_id) const;
  void Warn(const Text& warning) const;

  orim::Repository repository_;
  orim::Package package_;
  Text trash_name_;
  OrimDoc& orim_doc_;
  const ElementIndex& index_;
  ImportProgress& progress_;
  std::vector<std::size_t> archived_, restored_;
  std::unordered_set<std::size_t> stuck_in_trash_;
  std::unordered_map<std::int32_t, std::vector<std::int32_t>> children_;  // of what is to be archived
  std::unordered_set<std::int32_t> staying_;
};

}  // namespace kestrune
