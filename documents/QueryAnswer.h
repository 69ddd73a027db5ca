// The rows that a host query answers, read by column.
#pragma once

#include "orim/Repository.h"

namespace kestrune {

/// One row; columns are numbered as they were asked for. Line ends are line feeds. Valid until the next row.
class QueryRow {
 public:
  explicit QueryRow(std::size_t column_count) : cells_(column_count) {}

  bool Has(std::size_t column) const { return cells_[column].Rank != 0; }
  /// "" where the row lacks the column.
  TextView GetText(std::size_t column) const {
    return Has(column) ? TextView(cells_[column].Content) : TextView();
  }
  /// 0 where the row lacks the column. Throws AutomationError error::kUnreadableAnswer for a number that is none of 32 bits.
  std::int32_t GetNumber(std::size_t column) const;

 private:
  friend class RowReader;
  struct Cell {
    Text Content;
    int Rank = 0;  // of its column's spelling; 0: none
  };
  std::vector<Cell> cells_;
};

/// Who is shown the rows of an answer.
class RowVisitor {
 public:
  virtual ~RowVisitor() = default;
  /// Comes before the first row, and again when all that has been shown is void and comes once more.
  virtual void OnAnswer() = 0;
  /// Whether a column that the row has is looked at; the row holds those that stand before it. What is not is not there.
  virtual bool Wants(const QueryRow&, [[maybe_unused]] std::size_t column) { return true; }
  virtual void OnRow(const QueryRow& row) = 0;
};

/// Runs the query and shows each row of the answer, which is gone when this returns. The host answers with a "Row" per row
/// below "ORIMDATA/Dataset_0/Data", each with a child element per column that is not null. It may spell a column as in the
/// query, in upper case or in lower case: that order decides when a row has several. An answer without that node has no
/// rows. Throws AutomationError when the host refuses the query or answers what is no XML.
void ForEachRow(const orim::Repository& repository, const Text& sql, const std::vector<Text>& columns,
                RowVisitor& visitor);
/// The same for small answers: `Row` is made of each row, and the rows are answered together.
template <typename Row>
std::vector<Row> RowsOf(const orim::Repository& repository, const Text& sql, const std::vector<Text>& columns,
                        Row (*make)(const QueryRow&)) {
  struct : RowVisitor {
    void OnAnswer() override { Rows.clear(); }
    void OnRow(const QueryRow& row) override { Rows.push_back(Make(row)); }
    Row (*Make)(const QueryRow&);
    std::vector<Row> Rows;
  } all;
  all.Make = make;
  ForEachRow(repository, sql, columns, all);
  return std::move(all.Rows);
}

}  // namespace kestrune
