#include "import/UnfinishedElements.h"

#include "common/Resources.h"
#include "documents/QueryAnswer.h"

namespace kestrune {

namespace {

struct Found {
  std::int32_t Id;
  Text Name;
  bool HasNote;
};

Found Read(const QueryRow& row) {
  return {row.GetNumber(0), Text(row.GetText(1)), !row.GetText(2).empty()};
}

}  // namespace

std::optional<std::int32_t> UnfinishedElements::Take(const Text& name) {
  if (!ids_by_name_) Load();
  const auto found = ids_by_name_->find(name);
  if (found == ids_by_name_->end()) return std::nullopt;
  const std::int32_t id = found->second;
  ids_by_name_->erase(found);
  return id;
}

void UnfinishedElements::Load() {
  ids_by_name_.emplace();
  const Text sql = FormatText(LoadSql(sql_text::kUnfinished), {ToText(package_.PackageID())});
  for (Found& each : RowsOf<Found>(repository_, sql, {u"Object_ID", u"Name", u"Note"}, Read))
    if (!each.HasNote) ids_by_name_->emplace(std::move(each.Name), each.Id);
}

}  // namespace kestrune
