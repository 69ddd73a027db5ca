// The linked package's present content, read through one query of the host.
#pragma once

#include <unordered_map>

#include "documents/DataTable.h"
#include "documents/ImportColumn.h"
#include "documents/QueryAnswer.h"

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
  Variant StoredValue(std::size_t row, std::size_t column);

  /// The ids of the packages that the table covers, joined by commas.
  Text PackageIds() const;

 private:
  using ColumnsByName = std::unordered_multimap<Text, std::size_t>;

  void FindElements(const QueryAnswer& answer);
  void FillRow(std::size_t row, const QueryAnswer::Row& source);
  void FillTaggedValue(const QueryAnswer::Row& source, const ColumnsByName& columns);
  Text ParentIdentifier(std::size_t row, const QueryAnswer::Row& source) const;
  ColumnsByName TaggedValueColumns() const;
  void LoadMemoTexts();

  orim::Repository repository_;
  orim::Package package_;
  std::vector<ImportColumn> columns_ = std::vector<ImportColumn>(1);  // numbered as in the table
  std::unordered_multimap<std::int32_t, std::size_t> rows_by_id_;  // two for an element with two identifiers
  std::unordered_map<std::int32_t, Text> identifier_by_id_;
  DataTable table_;
  bool has_memo_texts_ = false;
  std::unordered_map<std::int32_t, std::unordered_map<Text, Text>> memo_texts_;  // by element id and name
};

}  // namespace kestrune
