#include "documents/OrimDoc.h"

#include "common/Resources.h"

namespace kestrune {

namespace {

struct Memo {
  std::int32_t ElementId;
  Text Name;
  Text Content;
};

Memo MemoIn(const QueryRow& row) {
  return {row.GetNumber(0), Text(row.GetText(1)), WidenLineFeeds(Text(row.GetText(2)))};
}
std::int32_t ObjectId(const QueryRow& row) {
  return row.GetNumber(0);
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
  ElementRows rows(columns_);
  ForEachRow(repository_, sql, ElementRows::QueryColumns(), rows);
  rows.Finish();
  table_ = std::move(rows.Table());
  doubled_ = std::move(rows.Doubled());
  CompleteIdentifiers();
  FillParents(rows);
  RequireSoundParents();
}

void OrimDoc::CompleteIdentifiers() {
  for (std::size_t row = 1; row <= table_.UpperRow(); ++row)
    if (table_.At(row, column::kIdentifier).AsText() == orim::kMemoValue)
      table_.PutText(row, column::kIdentifier,
                     MemoText(table_.At(row, column::kKey).ToInt(), Text(kObjectIdentifier)));
}

void OrimDoc::FillParents(const ElementRows& rows) {
  for (std::size_t row = 1; row <= table_.UpperRow(); ++row) {
    const std::int32_t parent = rows.ParentId(row);
    if (const auto parent_row = rows.RowOf(parent); parent_row && parent != 0) {
      table_.Share(row, column::kParent, table_.At(*parent_row, column::kIdentifier));
      continue;
    }
    table_.PutText(row, column::kParent, u"");
    if (parent != 0) foreign_parents_.emplace(row, parent);
  }
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
      for (const std::int32_t id : RowsOf<std::int32_t>(repository_, sql, {u"Object_ID"}, ObjectId))
        archived_->insert(id);
    }
  }
  return archived_->contains(table_.At(row, column::kKey).ToInt());
}

Cell OrimDoc::StoredValue(std::size_t row, std::size_t column) {
  const ImportColumn& field = columns_[column];
  const Cell& cell = table_.At(row, column);
  const bool is_memo = field.Place == ImportColumn::Place::kTaggedValue && cell.AsText() == orim::kMemoValue;
  return is_memo ? Cell(TextView(MemoText(table_.At(row, column::kKey).ToInt(), field.Name))) : cell;
}

const Text& OrimDoc::MemoText(std::int32_t element_id, const Text& name) {
  if (!has_memo_texts_) LoadMemoTexts();
  return memo_texts_[element_id][name];
}

void OrimDoc::LoadMemoTexts() {
  const Text sql = FormatText(LoadSql(sql_text::kMemoTexts), {PackageIds()});
  for (Memo& memo : RowsOf<Memo>(repository_, sql, {u"Object_ID", u"Property", u"Notes"}, MemoIn))
    memo_texts_[memo.ElementId][std::move(memo.Name)] = std::move(memo.Content);
  has_memo_texts_ = true;
}

}  // namespace kestrune
