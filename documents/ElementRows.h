// Takes the linked package's content as the host's answer is handed on: a row for each element and tagged value.
#pragma once

#include <set>
#include <unordered_map>

#include "documents/DataTable.h"
#include "documents/ImportColumn.h"
#include "documents/QueryAnswer.h"

namespace kestrune {

/// Fills the table of an OrimDoc but for the parents. An element is one that has the tagged value "Object Identifier";
/// of two with one name the later one counts.
class ElementRows : public RowVisitor {
 public:
  using Places = std::set<std::pair<std::size_t, std::size_t>>;  // row and column

  /// `columns` are numbered as in the table.
  explicit ElementRows(const std::vector<ImportColumn>& columns);

  /// The columns of the query that are read.
  static std::vector<Text> QueryColumns();

  void OnAnswer() override;
  bool Wants(const QueryRow& source, std::size_t column) override;
  void OnRow(const QueryRow& source) override;
  /// Completes the table when the answer is at its end.
  void Finish();

  DataTable& Table() { return table_; }
  /// The id of the element's parent, 0 at the top.
  std::int32_t ParentId(std::size_t row) const { return parent_ids_[row]; }
  /// The row of that element; nothing when it has none.
  std::optional<std::size_t> RowOf(std::int32_t element_id) const;
  /// Values that an element has more than once.
  Places& Doubled() { return doubled_; }

 private:
  struct Field {
    std::size_t Column;
    std::size_t QueryColumn;
  };
  struct Early {  // a value that came before its element's identifier
    std::size_t Column;
    Text Value;
  };

  void AddElement(std::int32_t id, const QueryRow& source);
  void PutTaggedValue(std::size_t row, std::size_t column, TextView value);

  std::size_t last_column_;
  std::vector<Field> fields_;
  std::unordered_map<Text, std::size_t, TextHash, std::equal_to<>> tagged_values_;  // columns by name
  DataTable table_;
  std::vector<std::int32_t> parent_ids_;                     // by row
  std::unordered_map<std::int32_t, std::size_t> row_by_id_;  // the first of an element with two identifiers
  std::vector<std::pair<std::size_t, std::size_t>> twins_;   // a later one of its rows, and the first
  std::unordered_map<std::int32_t, std::vector<Early>> early_;  // by id
  Places doubled_;
  std::optional<bool> is_known_;  // whether the element of the row that is read has a row already
};

}  // namespace kestrune
