#include "standins/doors-database/OutlineNumbers.h"

namespace kestrune::standins {

namespace {

struct Counted {
  int headings = 0;
  int others = 0;
};

}  // namespace

std::vector<Text> OutlineNumbers(const ModuleContent& content, bool show_deleted) {
  const auto& objects = content.Objects();
  const int heading = content.AttributeAt(u"Object Heading");
  std::vector<Text> numbers(objects.size());
  std::vector<bool> is_heading(objects.size());
  std::vector<Counted> below(objects.size() + 1);  // the last one: the module
  for (std::size_t i = 0; i < objects.size(); ++i) {
    is_heading[i] = heading != ModuleContent::kNone && !content.Value(static_cast<int>(i), heading).empty();
    if (objects[i].deleted && !show_deleted) continue;
    const bool is_top = objects[i].parent == ModuleContent::kNone;
    const std::size_t parent = is_top ? objects.size() : static_cast<std::size_t>(objects[i].parent);
    const Text prefix = is_top ? Text() : numbers[parent];
    if (!is_top && !is_heading[parent]) {
      numbers[i] = prefix + u"." + ToText(++below[parent].others);
    } else if (is_heading[i]) {
      numbers[i] = (is_top ? Text() : prefix + u".") + ToText(++below[parent].headings);
    } else {
      numbers[i] = (is_top ? u"0." : prefix + u"-0.") + ToText(++below[parent].others);
    }
  }
  return numbers;
}

}  // namespace kestrune::standins
