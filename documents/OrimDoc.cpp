#include "documents/OrimDoc.h"

#include "common/Resources.h"
#include "orim/ElementFields.h"

namespace kestrune {

namespace {

// The columns that are read of the package query; those of the element fields follow.
enum QueryColumn : std::size_t { kObjectId, kParentId, kTreePos, kProperty, kValue, kFirstField };

std::vector<Text> QueryColumns() {
  std::vector<Text> columns = {u"Object_ID", u"ParentID", u"TPos", u"Property", u"Value"};
  for (const orim::ElementField& field : orim::kElementFields) columns.emplace_back(field.QueryColumn);
  return columns;
}

/// The column of the query that answers the element field.
std::size_t QueryColumnOf(const Text& field) {
  return kFirstField + static_cast<std::size_t>(orim::FindElementField(field) - orim::kElementFields.data());
}

bool IsIdentifierRow(const QueryAnswer::Row& row) {
  return row.GetText(kProperty) == kObjectIdentifier;
}

}  // namespace

Text OrimDoc::PackageIds() const {
  Text ids = ToText(package_.PackageID());
  if (const orim::Package trash = package_.Packages().Find(LoadResText(text::kTrashCan)))
    ids.append(u",").append(ToText(trash.PackageID()));
  return ids;
}

void OrimDoc::Load() {
  const Text sql = FormatText(LoadSql(sql_text::kPackageContent), {PackageIds()});
  const QueryAnswer answer(repository_, sql, QueryColumns());
  FindElements(answer);
  if (table_.UpperRow() == 0) return;
  const ColumnsByName tagged_values = TaggedValueColumns();
  std::size_t next = 0;
  answer.ForEach([&](const QueryAnswer::Row& row) {
    if (IsIdentifierRow(row)) FillRow(++next, row);
    FillTaggedValue(row, tagged_values);
  });
}

void OrimDoc::FindElements(const QueryAnswer& answer) {
  std::size_t count = 0;
  answer.ForEach([&](const QueryAnswer::Row& row) {
    if (!IsIdentifierRow(row)) return;
    const std::int32_t id = row.GetNumber(kObjectId);
    rows_by_id_.emplace(id, ++count);
    identifier_by_id_.emplace(id, row.GetText(kValue));
  });
  table_ = DataTable(count, LastColumn());
}

void OrimDoc::FillRow(std::size_t row, const QueryAnswer::Row& source) {
  table_.At(row, column::kKey) = source.GetNumber(kObjectId);
  for (std::size_t c = 1; c <= LastColumn(); ++c) {
    if (columns_[c].Place != ImportColumn::Place::kElementField) continue;
    const std::size_t query_column = QueryColumnOf(columns_[c].Name);
    if (source.Has(query_column)) table_.At(row, c) = source.GetText(query_column);
  }
  table_.At(row, column::kParent) = ParentIdentifier(row, source);
  table_.At(row, column::kPosition) = source.GetNumber(kTreePos);
}

Text OrimDoc::ParentIdentifier(std::size_t row, const QueryAnswer::Row& source) const {
  const std::int32_t parent = source.GetNumber(kParentId);
  if (parent == 0) return {};
  const auto found = identifier_by_id_.find(parent);
  if (found == identifier_by_id_.end()) {
    throw AutomationError(
        error::kForeignParent, u"OrimDoc.Load",
        FormatResText(text::kForeignParent, {table_.At(row, column::kKey).ToText(), ToText(parent)}));
  }
  return found->second;
}

OrimDoc::ColumnsByName OrimDoc::TaggedValueColumns() const {
  ColumnsByName columns;
  for (std::size_t c = 1; c <= LastColumn(); ++c)
    if (columns_[c].Place == ImportColumn::Place::kTaggedValue) columns.emplace(columns_[c].Name, c);
  return columns;
}

void OrimDoc::FillTaggedValue(const QueryAnswer::Row& source, const ColumnsByName& columns) {
  const auto [first_field, last_field] = columns.equal_range(source.GetText(kProperty));
  if (first_field == last_field) return;
  const auto [first_row, last_row] = rows_by_id_.equal_range(source.GetNumber(kObjectId));
  for (auto row = first_row; row != last_row; ++row)
    for (auto field = first_field; field != last_field; ++field)
      table_.At(row->second, field->second) = source.GetText(kValue);
}

Variant OrimDoc::StoredValue(std::size_t row, std::size_t column) {
  const ImportColumn& field = columns_[column];
  const bool is_memo =
      field.Place == ImportColumn::Place::kTaggedValue && table_.TextAt(row, column) == orim::kMemoValue;
  if (!is_memo) return table_.At(row, column);
  if (!has_memo_texts_) LoadMemoTexts();
  return memo_texts_[table_.At(row, column::kKey).ToInt()][field.Name];
}

void OrimDoc::LoadMemoTexts() {
  const Text sql = FormatText(LoadSql(sql_text::kMemoTexts), {PackageIds()});
  const QueryAnswer answer(repository_, sql, {u"Object_ID", u"Property", u"Notes"});
  answer.ForEach(
      [&](const QueryAnswer::Row& row) { memo_texts_[row.GetNumber(0)][row.GetText(1)] = row.GetText(2); });
  has_memo_texts_ = true;
}

}  // namespace kestrune
