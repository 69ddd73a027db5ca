// The linked package's present content, read through one query of the host.
#pragma once

#include <optional>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "documents/DataTable.h"
#include "documents/ElementRows.h"
#include "documents/ImportColumn.h"

namespace kestrune {

/// Fields are added first, then the package is loaded once, then the table is read. A row stands for an
/// element that was imported from DOORS, in the package or in its trash package. Column 0 is the element's
/// id, column c the c-th field. The first four fields are the fixed ones, in the order of the columns named
/// in DataTable.h; the level is not read from the host and stays empty.
class OrimDoc {
 public:
  OrimDoc(orim::Repository repository, orim::Package package)
      : repository_(std::move(repository)), package_(std::move(package)) {}

  void AddField(ImportColumn column) { columns_.push_back(std::move(column)); }

  /// Throws AutomationError error::kForeignParent when an element lies below one that was not imported from
  /// DOORS.
  void Load();

  const DataTable& GetData() const { return table_; }
  /// What table column c holds, for c from 1 to LastColumn().
  const ImportColumn& Column(std::size_t c) const { return columns_[c]; }
  std::size_t LastColumn() const { return columns_.size() - 1; }

  /// The value that the package holds: the cell, or for a tagged value stored as "<memo>" its memo text. The
  /// memo texts of all elements are asked for together, when the first is needed.
  Cell StoredValue(std::size_t row, std::size_t column);

  /// Whether the row's element lies in the trash package. The host is asked for all of them together, when the first
  /// is needed.
  bool IsArchived(std::size_t row);
  /// Whether the row's element lies below one that is not in the table: its parent cell is "" nevertheless.
  bool HasForeignParent(std::size_t row) const { return foreign_parents_.contains(row); }
  /// Whether the row's element has the tagged value of that column more than once. The cell holds one of them.
  bool IsDoubled(std::size_t row, std::size_t column) const { return doubled_.contains({row, column}); }
  /// All of those, in order.
  const std::set<std::pair<std::size_t, std::size_t>>& Doubled() const { return doubled_; }

 private:
  void CompleteIdentifiers();
  void FillParents(const ElementRows& rows);
  [[noreturn]] void ThrowForeignParent(std::int32_t element_id, std::int32_t parent_id) const;
  /// The element, or nothing where there is none any more.
  orim::Element TryToGet(std::int32_t element_id) const;
  void RequireSoundParents();
  Text PackageIds() const;
  const Text& MemoText(std::int32_t element_id, const Text& name);
  void LoadMemoTexts();

  orim::Repository repository_;
  orim::Package package_;
  std::vector<ImportColumn> columns_ = std::vector<ImportColumn>(1);  // numbered as in the table
  DataTable table_;
  std::unordered_map<std::size_t, std::int32_t> foreign_parents_;  // the parent's id by row
  std::set<std::pair<std::size_t, std::size_t>> doubled_;
  std::int32_t trash_id_ = 0;  // 0: the package has no trash package
  std::optional<std::unordered_set<std::int32_t>> archived_;
  bool has_memo_texts_ = false;
  std::unordered_map<std::int32_t, std::unordered_map<Text, Text>> memo_texts_;  // by element id and name
};

}  // namespace kestrune
