#include "import/UnfinishedElements.h"

#include "common/Resources.h"
#include "documents/QueryAnswer.h"

namespace kestrune {

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
  const QueryAnswer answer(repository_, sql, {u"Object_ID", u"Name", u"Note"});
  answer.ForEach([this](const QueryAnswer::Row& row) {
    if (row.GetText(2).empty()) ids_by_name_->emplace(row.GetText(1), row.GetNumber(0));
  });
}

}  // namespace kestrune
