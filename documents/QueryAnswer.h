// The rows that a host query answers, read by column.
#pragma once

#include <functional>
#include <unordered_map>

#include "orim/Repository.h"
#include "platform/Xml.h"

namespace kestrune {

/// The host answers with a "Row" per row below "ORIMDATA/Dataset_0/Data", each with a child element per
/// column that is not null. It may spell a column as in the query, in upper case or in lower case: that order
/// decides when a row has several. An answer without that node has no rows.
class QueryAnswer {
 public:
  /// One row; columns are numbered as they were asked for.
  class Row {
   public:
    bool Has(std::size_t column) const { return static_cast<bool>(cells_[column].Node); }
    /// The text with its line ends as CR LF; "" where the row lacks the column.
    Text GetText(std::size_t column) const;
    std::int32_t GetNumber(std::size_t column) const;

   private:
    friend class QueryAnswer;
    struct Cell {
      XmlNode Node;
      int Spelling = 0;
    };
    std::vector<Cell> cells_;
  };

  /// Runs the query. Throws AutomationError when the host refuses it or answers what is no XML.
  QueryAnswer(const orim::Repository& repository, const Text& sql, const std::vector<Text>& columns);

  void ForEach(const std::function<void(const Row&)>& visit) const;

 private:
  struct Spelling {
    std::size_t Column;
    int Rank;  // the lowest wins
  };
  XmlDocument document_;
  std::size_t column_count_;
  std::unordered_map<Text, Spelling> spellings_;
};

}  // namespace kestrune
