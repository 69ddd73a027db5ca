#include "documents/QueryAnswer.h"

#include "common/Resources.h"

namespace kestrune {

Text QueryAnswer::Row::GetText(std::size_t column) const {
  return Has(column) ? WidenLineFeeds(cells_[column].Node.Content()) : Text();
}

std::int32_t QueryAnswer::Row::GetNumber(std::size_t column) const {
  return Has(column) ? Variant(NumericValue(cells_[column].Node.Content())).ToInt() : 0;
}

QueryAnswer::QueryAnswer(const orim::Repository& repository, const Text& sql,
                         const std::vector<Text>& columns)
    : column_count_(columns.size()) {
  const Text xml = repository.Query(sql);
  if (!xml.empty() && !document_.LoadText(xml)) {
    throw AutomationError(error::kUnreadableAnswer, u"QueryAnswer",
                          FormatResText(text::kAnswerUnreadable, {document_.ParseError().Reason}));
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    spellings_.try_emplace(columns[i], Spelling{i, 1});
    spellings_.try_emplace(AsciiUpper(columns[i]), Spelling{i, 2});
    spellings_.try_emplace(AsciiLower(columns[i]), Spelling{i, 3});
  }
}

void QueryAnswer::ForEach(const std::function<void(const Row&)>& visit) const {
  const XmlNode data = document_.SelectSingleNode(u"ORIMDATA/Dataset_0/Data");
  if (!data) return;
  Row row;
  for (XmlNode each = data.FirstChild(); each; each = each.NextSibling()) {
    if (each.Name() != u"Row") continue;
    row.cells_.assign(column_count_, {});
    for (XmlNode value = each.FirstChild(); value; value = value.NextSibling()) {
      const auto found = spellings_.find(value.Name());
      if (found == spellings_.end()) continue;
      Row::Cell& cell = row.cells_[found->second.Column];
      if (!cell.Node || found->second.Rank < cell.Spelling) cell = {value, found->second.Rank};
    }
    visit(row);
  }
}

}  // namespace kestrune
