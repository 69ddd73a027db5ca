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
  const Text id = ToText(package_.PackageID());
  return trash_id_ == 0 ? id : id + u"," + ToText(trash_id_);
}

void OrimDoc::Load() {
  const orim::Package trash = package_.Packages().Find(LoadResText(text::kTrashCan));
  trash_id_ = trash ? trash.PackageID() : 0;
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
  RequireSoundParents();
}

void OrimDoc::FindElements(const QueryAnswer& answer) {
  std::size_t count = 0;
  answer.ForEach([&](const QueryAnswer::Row& row) {
    if (!IsIdentifierRow(row)) return;
    const std::int32_t id = row.GetNumber(kObjectId);
    rows_by_id_.emplace(id, ++count);
    const Text value = row.GetText(kValue);
    identifier_by_id_.emplace(id, value == orim::kMemoValue ? MemoText(id, Text(kObjectIdentifier)) : value);
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

Text OrimDoc::ParentIdentifier(std::size_t row, const QueryAnswer::Row& source) {
  const std::int32_t parent = source.GetNumber(kParentId);
  if (parent == 0) return {};
  const auto found = identifier_by_id_.find(parent);
  if (found != identifier_by_id_.end()) return found->second;
  foreign_parents_.emplace(row, parent);
  return {};
}

void OrimDoc::RequireSoundParents() {
  for (std::size_t row = 1; row <= table_.UpperRow() && !foreign_parents_.empty(); ++row) {
    const auto foreign = foreign_parents_.find(row);
    if (foreign != foreign_parents_.end() && !IsArchived(row))
      ThrowForeignParent(table_.At(row, column::kKey).ToInt(), foreign->second);
  }
}

void OrimDoc::ThrowForeignParent(std::int32_t element_id, std::int32_t parent_id) const {
  const auto package_of = [this](const orim::Element& element) {
    return repository_.PackageByID(element.PackageID()).Name();
  };
  const orim::Element element = repository_.ElementByID(element_id);
  const Text name = element.Name(), id = ToText(element_id), package = package_of(element);
  Text description;
  if (const orim::Element parent = TryToGet(parent_id)) {
    const bool is_elsewhere = parent.PackageID() != package_.PackageID() && parent.PackageID() != trash_id_;
    description =
        FormatResText(is_elsewhere ? text::kParentElsewhere : text::kForeignParent,
                      {name, id, package, parent.Name(), ToText(parent_id), package_of(parent), name});
  } else {
    description = FormatResText(text::kParentMissing, {name, id, package, ToText(parent_id), name});
  }
  throw AutomationError(error::kForeignParent, u"OrimDoc.Load", std::move(description));
}

orim::Element OrimDoc::TryToGet(std::int32_t element_id) const {
  try {
    return repository_.ElementByID(element_id);
  } catch (const AutomationError& failure) {
    if (error::IsConnectionLost(failure.Number)) throw;
    return {};
  }
}

// The package query does not say where an element lies; the same query over the trash package alone does, for all.
bool OrimDoc::IsArchived(std::size_t row) {
  if (!archived_) {
    archived_.emplace();
    if (trash_id_ != 0) {
      const Text sql = FormatText(LoadSql(sql_text::kPackageContent), {ToText(trash_id_)});
      const QueryAnswer answer(repository_, sql, {u"Object_ID"});
      answer.ForEach([this](const QueryAnswer::Row& each) { archived_->insert(each.GetNumber(0)); });
    }
  }
  return archived_->contains(table_.At(row, column::kKey).ToInt());
}

OrimDoc::ColumnsByName OrimDoc::TaggedValueColumns() const {
  ColumnsByName columns;
  for (std::size_t c = 1; c <= LastColumn(); ++c)
    if (columns_[c].Place == ImportColumn::Place::kTaggedValue) columns.emplace(columns_[c].Name, c);
  return columns;
}

void OrimDoc::FillTaggedValue(const QueryAnswer::Row& source, const ColumnsByName& columns) {
  const auto field = columns.find(source.GetText(kProperty));
  if (field == columns.end()) return;
  const std::size_t c = field->second;
  const auto [first_row, last_row] = rows_by_id_.equal_range(source.GetNumber(kObjectId));
  for (auto row = first_row; row != last_row; ++row) {
    Variant& cell = table_.At(row->second, c);
    if (!cell.IsEmpty()) doubled_.emplace(row->second, c);
    cell = source.GetText(kValue);
    if (c == column::kIdentifier && cell.AsText() == orim::kMemoValue)
      cell = MemoText(source.GetNumber(kObjectId), field->first);
  }
}

Variant OrimDoc::StoredValue(std::size_t row, std::size_t column) {
  const ImportColumn& field = columns_[column];
  const bool is_memo =
      field.Place == ImportColumn::Place::kTaggedValue && table_.TextAt(row, column) == orim::kMemoValue;
  if (!is_memo) return table_.At(row, column);
  return MemoText(table_.At(row, column::kKey).ToInt(), field.Name);
}

const Text& OrimDoc::MemoText(std::int32_t element_id, const Text& name) {
  if (!has_memo_texts_) LoadMemoTexts();
  return memo_texts_[element_id][name];
}

void OrimDoc::LoadMemoTexts() {
  const Text sql = FormatText(LoadSql(sql_text::kMemoTexts), {PackageIds()});
  const QueryAnswer answer(repository_, sql, {u"Object_ID", u"Property", u"Notes"});
  answer.ForEach(
      [&](const QueryAnswer::Row& row) { memo_texts_[row.GetNumber(0)][row.GetText(1)] = row.GetText(2); });
  has_memo_texts_ = true;
}

}  // namespace kestrune
