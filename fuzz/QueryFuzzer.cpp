// The host's answer to the query for a package.
#include "documents/ElementRows.h"
#include "fuzz/FakeRepository.h"
#include "fuzz/Fuzz.h"
#include "options/LinkSettings.h"

namespace kestrune::fuzz {

void Fuzz(std::string_view input) {
  static const std::vector<ImportColumn> columns = [] {
    std::vector<ImportColumn> made(1);
    for (const TextView fixed : kFixedRules) made.push_back(ColumnOf(*ParseRule(fixed)));
    for (const char16_t* rule : {u"A --> Name", u"B --> Notes", u"C --> (Tagged Value)", u"D --> Status"})
      made.push_back(ColumnOf(*ParseRule(rule)));
    return made;
  }();
  ElementRows rows(columns);
  try {
    ForEachRow(RepositoryThatAnswers(FromUtf8(input)), u"", ElementRows::QueryColumns(), rows);
  } catch (const AutomationError& failure) {
    Require(failure.Number == error::kUnreadableAnswer, "an answer that cannot be read is called so");
    return;
  }
  rows.Finish();
  for (std::size_t row = 1; row <= rows.Table().UpperRow(); ++row) {
    Require(rows.Table().At(row, column::kIdentifier).IsText(), "every row has an identifier");
    for (std::size_t column = 0; column < columns.size(); ++column) rows.Table().At(row, column).ToText();
    rows.ParentId(row);
  }
  for (const auto& [row, column] : rows.Doubled())
    Require(row <= rows.Table().UpperRow() && column < columns.size(), "a doubled value stands in the table");
}

}  // namespace kestrune::fuzz
