#include "standins/doors-database/OutlineNumbers.h"

namespace kestrune::standins {

namespace {

struct Counted {
  int headings = 0;
  int others = 0;
};

}  // namespace

OutlineNumbers::OutlineNumbers(const ModuleContent& content, bool show_deleted)
    : content_(content), parts_(content.Objects().size()) {
  const auto& objects = content.Objects();
  const int heading = content.AttributeAt(u"Object Heading");
  std::vector<bool> is_heading(objects.size());
  std::vector<Counted> below(objects.size() + 1);  // the last one: the module
  for (std::size_t i = 0; i < objects.size(); ++i) {
    is_heading[i] = heading != ModuleContent::kNone && !content.Value(static_cast<int>(i), heading).empty();
    if (objects[i].deleted && !show_deleted) continue;
    const bool is_top = objects[i].parent == ModuleContent::kNone;
    const std::size_t parent = is_top ? objects.size() : static_cast<std::size_t>(objects[i].parent);
    if (!is_top && !is_heading[parent]) {
      parts_[i] = {u".", ++below[parent].others};
    } else if (is_heading[i]) {
      parts_[i] = {is_top ? u"" : u".", ++below[parent].headings};
    } else {
      parts_[i] = {is_top ? u"0." : u"-0.", ++below[parent].others};
    }
  }
}

Text OutlineNumbers::At(int place) const {
  if (parts_[static_cast<std::size_t>(place)].own == 0) return {};
  std::vector<const Part*> path;
  for (; place != ModuleContent::kNone; place = content_.Objects()[static_cast<std::size_t>(place)].parent)
    path.push_back(&parts_[static_cast<std::size_t>(place)]);
  Text number;
  for (auto part = path.rbegin(); part != path.rend(); ++part)
    if ((*part)->own > 0) number.append((*part)->before).append(ToText((*part)->own));
  return number;
}

}  // namespace kestrune::standins
