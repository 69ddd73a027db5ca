#include "standins/doors-database/ModuleContent.h"

#include "standins/doors-database/ObjectTree.h"
#include "standins/doors-database/RichText.h"

namespace kestrune::standins {

namespace {

const Text kEmpty;

}  // namespace

ModuleContent::ModuleContent(DoorsDatabase& database, ItemId module) {
  Database& sql = database.Sql();
  const auto attributes = ReadAttributes(sql, module);
  const auto objects = ReadObjects(sql, module);
  cells_.assign(objects_.size() * attributes_.size(), kNone);
  ReadValues(sql, module, objects, attributes);
  ReadModuleValues(sql, module, attributes);
  AddAbsoluteNumbers();
}

ModuleContent::IndexById ModuleContent::ReadAttributes(Database& database, ItemId module) {
  Statement row = database.Prepare(
      "SELECT id, name, type, on_object, on_module, system, multi, readable FROM attribute WHERE module = ? "
      "ORDER BY position, id",
      module);
  IndexById index;
  while (row.Step()) {
    const int place = static_cast<int>(attributes_.size());
    index[row.Int64(0)] = place;
    attributes_.push_back({row.Int64(0), row.GetText(1), row.GetText(2), row.Int(3) != 0, row.Int(4) != 0,
                           row.Int(5) != 0, row.Int(6) != 0, row.Int(7) != 0});
    attribute_by_name_.emplace(attributes_.back().name, place);
  }
  return index;
}

ModuleContent::IndexById ModuleContent::ReadObjects(Database& database, ItemId module) {
  auto [objects, index] = ReadObjectTree(database, module);
  objects_ = std::move(objects);
  for (std::size_t i = 0; i < objects_.size(); ++i)
    object_by_number_[objects_[i].absolute_number] = static_cast<int>(i);
  return std::move(index);
}

void ModuleContent::ReadValues(Database& database, ItemId module, const IndexById& objects,
                               const IndexById& attributes) {
  Statement row = database.Prepare(
      "SELECT v.object, v.attribute, v.text, v.rich FROM object o JOIN value v ON v.object = o.id "
      "WHERE o.module = ?",
      module);
  while (row.Step()) {
    const auto attribute = attributes.find(row.Int64(1));
    if (attribute == attributes.end()) continue;  // a value that no definition of this module explains
    Stored value{row.GetText(2), row.IsNull(3) ? nullptr : std::make_unique<Text>(row.View(3))};
    if (!value.text.empty()) SetCell(objects.at(row.Int64(0)), attribute->second, std::move(value));
  }
}

void ModuleContent::ReadModuleValues(Database& database, ItemId module, const IndexById& attributes) {
  Statement row = database.Prepare(
      "SELECT v.attribute, v.text FROM attribute a JOIN module_value v ON v.attribute = a.id WHERE a.module "
      "= ?",
      module);
  while (row.Step()) module_values_[attributes.at(row.Int64(0))] = row.GetText(1);
}

void ModuleContent::AddAbsoluteNumbers() {
  const int attribute = AttributeAt(u"Absolute Number");
  if (attribute == kNone) return;
  for (std::size_t i = 0; i < objects_.size(); ++i)
    SetCell(static_cast<int>(i), attribute, {ToText(objects_[i].absolute_number), nullptr});
}

void ModuleContent::SetCell(int object, int attribute, Stored value) {
  const auto place =
      static_cast<std::size_t>(object) * attributes_.size() + static_cast<std::size_t>(attribute);
  cells_[place] = static_cast<int>(values_.size());
  values_.push_back(std::move(value));
}

int ModuleContent::ObjectAt(int absolute_number) const {
  const auto found = object_by_number_.find(absolute_number);
  return found == object_by_number_.end() ? kNone : found->second;
}

int ModuleContent::AttributeAt(TextView name) const {
  const auto found = attribute_by_name_.find(Text(name));
  return found == attribute_by_name_.end() ? kNone : found->second;
}

const Text& ModuleContent::Value(int object, int attribute) const {
  const int cell = Cell(object, attribute);
  return cell == kNone ? kEmpty : values_[static_cast<std::size_t>(cell)].text;
}

Text ModuleContent::RichValue(int object, int attribute) const {
  const int cell = Cell(object, attribute);
  if (cell == kNone) return {};
  const Stored& value = values_[static_cast<std::size_t>(cell)];
  return value.rich ? *value.rich : EscapeMarkup(value.text);
}

const Text& ModuleContent::ModuleValue(int attribute) const {
  const auto found = module_values_.find(attribute);
  return found == module_values_.end() ? kEmpty : found->second;
}

}  // namespace kestrune::standins
