#include "import/TrashPhase.h"

#include "common/Resources.h"
#include "documents/QueryAnswer.h"

namespace kestrune {

namespace {

constexpr std::size_t kMany = 10;  // fewer archived elements are no cause for alarm

}  // namespace

void TrashPhase::Run(const orim::Package& trash, const std::vector<bool>& is_matched) {
  trash_name_ = trash.Name();
  std::size_t living = 0;
  for (std::size_t row = 1; row < is_matched.size(); ++row) {
    const bool is_archived = orim_doc_.IsArchived(row);
    if (!is_archived) ++living;
    if (is_matched[row] == is_archived) LookAt(row, is_archived);
  }
  KeepChildrenOfWhatStays();
  WarnOfMany(living);
  for (const std::size_t row : archived_) DetachChildren(index_.ElementIdOf(row));
  for (const std::size_t row : restored_) Move(row, package_.PackageID(), text::kItemRestored);
  for (const std::size_t row : archived_) Move(row, trash.PackageID(), text::kItemArchived);
}

void TrashPhase::LookAt(std::size_t row, bool is_archived) {
  const std::int32_t id = index_.ElementIdOf(row);
  const orim::Element element = repository_.ElementByID(id);
  const bool is_locked = element.Locked();
  if (is_archived && is_locked) {
    stuck_in_trash_.insert(row);
    return Warn(FormatResText(text::kLockedInTrash, {element.Name(), trash_name_}));
  }
  if (is_archived) return restored_.push_back(row);
  const std::vector<std::int32_t>& children = children_[id] = ChildrenOf(id);
  orim::Element locked = is_locked ? element : orim::Element();
  for (std::size_t i = 0; i < children.size() && !locked; ++i)
    if (const orim::Element child = repository_.ElementByID(children[i]); child.Locked()) locked = child;
  archived_.push_back(row);
  if (!locked) return;
  staying_.insert(id);
  Warn(FormatResText(text::kLockedStays, {element.Name(), locked.Name()}));
}

void TrashPhase::KeepChildrenOfWhatStays() {
  std::vector<std::int32_t> open(staying_.begin(), staying_.end());
  while (!open.empty()) {
    const auto below = children_.find(open.back());
    open.pop_back();
    if (below == children_.end()) continue;
    for (const std::int32_t child : below->second)
      if (children_.contains(child) && staying_.insert(child).second) open.push_back(child);
  }
  std::erase_if(archived_, [this](std::size_t row) { return staying_.contains(index_.ElementIdOf(row)); });
}

void TrashPhase::WarnOfMany(std::size_t living) const {
  const std::size_t count = archived_.size();
  if (count < kMany || 2 * count <= living) return;
  const auto number = [](std::size_t n) { return ToText(static_cast<long long>(n)); };
  Warn(FormatResText(text::kManyArchived, {number(count), number(living), trash_name_}));
}

std::vector<std::int32_t> TrashPhase::ChildrenOf(std::int32_t element_id) const {
  const Text sql = FormatText(LoadSql(sql_text::kChildren), {ToText(element_id)});
  return RowsOf<std::int32_t>(repository_, sql, {u"Object_ID"},
                              [](const QueryRow& row) { return row.GetNumber(0); });
}

// The children stay in the package when their parent leaves it; the hierarchy phase gives them their new parent.
void TrashPhase::DetachChildren(std::int32_t element_id) const {
  for (const std::int32_t id : children_.at(element_id)) {
    const orim::Element child = repository_.ElementByID(id);
    child.SetParentID(0);
    child.Save();
  }
}

void TrashPhase::Move(std::size_t row, std::int32_t package_id, int line_id) const {
  const orim::Element element = repository_.ElementByID(index_.ElementIdOf(row));
  element.SetPackageID(package_id);
  progress_.Progress(u"   " + FormatResText(line_id, {element.Name()}));
  element.Save();
}

void TrashPhase::Warn(const Text& warning) const {
  progress_.Progress(FormatResText(text::kWarningLine, {warning}));
}

}  // namespace kestrune
