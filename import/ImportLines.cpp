#include "import/ImportLines.h"

namespace kestrune {

std::size_t ImportLines::Add(Text line) {
  lines_.push_back(std::move(line));
  return lines_.size() - 1;
}

std::size_t ImportLines::AddChange(const Text& item, const Text& change) {
  const Text head = u"   " + item + u":";
  if (!IsOpenGroupOf(head)) {
    open_group_ = Add(head + u" ... " + change);
    return *open_group_;
  }
  std::size_t first_changed = lines_.size();
  const Text line = lines_[*open_group_];
  if (line.size() > head.size()) {
    // The group's first change still stands in its head: it moves to a line of its own.
    Add(u"    " + line.substr(head.size() + 1));
    lines_[*open_group_] = head;
    first_changed = *open_group_;
  }
  Add(u"    ... " + change);
  return first_changed;
}

bool ImportLines::IsOpenGroupOf(const Text& head) const {
  return open_group_ && lines_[*open_group_].starts_with(head);
}

std::size_t ImportLines::Settled() const {
  return open_group_.value_or(lines_.size());
}

}  // namespace kestrune
