#include "standins/doors-database/ViewFilter.h"

#include <algorithm>

namespace kestrune::standins {

namespace {

using Operator = FilterCondition::Operator;

Operator OperatorNamed(TextView name) {
  if (name == u"equals") return Operator::kEquals;
  return name == u"contains" ? Operator::kContains : Operator::kNotEquals;
}

bool Holds(const FilterCondition& condition, const Text& value) {
  switch (condition.op) {
    case Operator::kEquals:
      return value == condition.value;
    case Operator::kNotEquals:
      return value != condition.value;
    case Operator::kContains:
      return value.find(condition.value) != Text::npos;
  }
  return false;
}

void KeepTablesWhole(const std::vector<DoorsObject>& objects, std::vector<bool>& accepted) {
  for (std::size_t i = 0; i < objects.size();) {
    if (objects[i].part != TablePart::kTable) {
      ++i;
      continue;
    }
    const auto first = accepted.begin() + static_cast<std::ptrdiff_t>(i);
    const auto last = accepted.begin() + objects[i].end;
    std::fill(first, last, std::find(first, last, true) != last);
    i = static_cast<std::size_t>(objects[i].end);
  }
}

}  // namespace

std::optional<View> ReadView(Database& database, ItemId module, TextView name) {
  if (name == kStandardView) return View();
  Statement row =
      database.Prepare("SELECT id, loadable FROM view WHERE module = ? AND name = ?", module, name);
  if (!row.Step()) return std::nullopt;
  View view{row.Int(1) != 0, {}};
  Statement condition =
      database.Prepare("SELECT attribute, operator, value FROM view_filter WHERE view = ?", row.Int64(0));
  while (condition.Step())
    view.conditions.push_back({condition.GetText(0), OperatorNamed(condition.View(1)), condition.GetText(2)});
  return view;
}

std::optional<std::vector<bool>> Accepted(const ModuleContent& content,
                                          const std::vector<FilterCondition>& conditions) {
  const auto& objects = content.Objects();
  std::vector<bool> accepted(objects.size(), true);
  for (const FilterCondition& condition : conditions) {
    const int attribute = content.AttributeAt(condition.attribute);
    if (attribute == ModuleContent::kNone) return std::nullopt;
    for (std::size_t i = 0; i < objects.size(); ++i)
      if (!Holds(condition, content.Value(static_cast<int>(i), attribute))) accepted[i] = false;
  }
  KeepTablesWhole(objects, accepted);
  return accepted;
}

}  // namespace kestrune::standins
