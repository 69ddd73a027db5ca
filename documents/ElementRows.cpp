#include "documents/ElementRows.h"

#include "orim/ElementFields.h"

namespace kestrune {

namespace {

// The columns that are read of the package query; those of the element fields follow.
enum QueryColumn : std::size_t { kObjectId, kParentId, kTreePos, kProperty, kValue, kFirstField };

/// The column of the query that answers the element field.
std::size_t QueryColumnOf(const Text& field) {
  return kFirstField + static_cast<std::size_t>(orim::FindElementField(field) - orim::kElementFields.data());
}

}  // namespace

ElementRows::ElementRows(const std::vector<ImportColumn>& columns) : last_column_(columns.size() - 1) {
  for (std::size_t c = 1; c <= last_column_; ++c) {
    const ImportColumn& column = columns[c];
    if (column.Place == ImportColumn::Place::kElementField)
      fields_.push_back({c, QueryColumnOf(column.Name)});
    if (column.Place == ImportColumn::Place::kTaggedValue) tagged_values_.emplace(column.Name, c);
  }
}

std::vector<Text> ElementRows::QueryColumns() {
  std::vector<Text> columns = {u"Object_ID", u"ParentID", u"TPos", u"Property", u"Value"};
  for (const orim::ElementField& field : orim::kElementFields) columns.emplace_back(field.QueryColumn);
  return columns;
}

void ElementRows::OnAnswer() {
  table_ = DataTable(last_column_);
  parent_ids_.assign(1, 0);
  row_by_id_.clear();
  twins_.clear();
  early_.clear();
  doubled_.clear();
  is_known_.reset();
}

/// The answer repeats an element for each of its tagged values.
bool ElementRows::Wants(const QueryRow& source, std::size_t column) {
  const bool is_repeated = column != kObjectId && column != kProperty && column != kValue;
  if (!is_repeated || !source.Has(kObjectId)) return true;
  if (!is_known_) is_known_ = row_by_id_.contains(source.GetNumber(kObjectId));
  return !*is_known_;
}

void ElementRows::OnRow(const QueryRow& source) {
  is_known_.reset();
  const std::int32_t id = source.GetNumber(kObjectId);
  if (source.GetText(kProperty) == kObjectIdentifier) AddElement(id, source);
  const auto field = tagged_values_.find(source.GetText(kProperty));
  if (field == tagged_values_.end()) return;
  if (const auto row = RowOf(id))
    PutTaggedValue(*row, field->second, source.GetText(kValue));
  else
    early_[id].push_back({field->second, Text(source.GetText(kValue))});
}

void ElementRows::AddElement(std::int32_t id, const QueryRow& source) {
  const std::size_t row = table_.AddRow();
  parent_ids_.push_back(source.GetNumber(kParentId));
  const auto [first, is_new] = row_by_id_.emplace(id, row);
  if (!is_new) return twins_.emplace_back(row, first->second), void();
  table_.Put(row, column::kKey, id);
  table_.Put(row, column::kPosition, source.GetNumber(kTreePos));
  for (const auto& [c, query_column] : fields_)
    if (source.Has(query_column)) table_.PutText(row, c, source.GetText(query_column));
  const auto early = early_.find(id);
  if (early == early_.end()) return;
  for (const auto& [c, value] : early->second) PutTaggedValue(row, c, value);
  early_.erase(early);
}

void ElementRows::PutTaggedValue(std::size_t row, std::size_t column, TextView value) {
  if (!table_.At(row, column).IsEmpty()) doubled_.emplace(row, column);
  table_.PutText(row, column, value);
}

void ElementRows::Finish() {
  for (const auto& [row, first] : twins_) {
    parent_ids_[row] = parent_ids_[first];
    for (std::size_t c = 0; c <= last_column_; ++c) table_.Share(row, c, table_.At(first, c));
  }
}

std::optional<std::size_t> ElementRows::RowOf(std::int32_t element_id) const {
  const auto found = row_by_id_.find(element_id);
  if (found == row_by_id_.end()) return std::nullopt;
  return found->second;
}

}  // namespace kestrune
