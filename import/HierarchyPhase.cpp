#include "import/HierarchyPhase.h"

namespace kestrune {

HierarchyPhase::Place HierarchyPhase::Update(std::size_t n, std::size_t row,
                                             const std::function<Text(const orim::Element&)>& item) {
  const ModuleRow& object = objects_.All()[n];
  const TextView parent = ParentOf(object);
  is_settled_[n] = Settles(n, parent);
  const DataTable& elements = orim_doc_.GetData();
  const bool is_created = index_.IsCreated(row);
  const bool is_loose = is_created || orim_doc_.HasForeignParent(row);
  std::vector<FieldValue> values;
  if (is_loose || parent != elements.At(row, column::kParent).AsText()) {
    if (!is_settled_[n]) OpenCircle(n, parent);
    values.push_back({column::kParent, parent});
  }
  const Cell& position = module_.At(object.Row, column::kPosition);
  if (is_created || !(position == elements.At(row, column::kPosition)))
    values.push_back({column::kPosition, position});
  if (values.empty()) return Place::kKept;
  const orim::Element element = repository_.ElementByID(index_.ElementIdOf(row));
  WrittenElement moved{element, row, item(element)};
  return writer_.Write(moved, std::move(values)).HasAll ? Place::kMoved : Place::kFailed;
}

TextView HierarchyPhase::ParentOf(const ModuleRow& object) const {
  const auto row = index_.Find(object.Parent);
  return row && stuck_in_trash_.contains(*row) ? TextView() : object.Parent;
}

bool HierarchyPhase::Settles(std::size_t n, TextView parent) const {
  if (parent.empty()) return true;
  const auto place = objects_.Find(parent);
  return place && *place < n && is_settled_[*place];
}

// The module has no circle, so that of the elements on the way up at least one is not yet where it will be.
void HierarchyPhase::OpenCircle(std::size_t n, TextView parent) {
  const TextView identifier = objects_.All()[n].Identifier;
  std::optional<std::size_t> movable;
  for (TextView at = parent; !at.empty(); at = PresentParent(at, n)) {
    if (at == identifier) {
      const auto row = movable ? index_.Find(objects_.All()[*movable].Identifier) : std::nullopt;
      if (!row) return;
      const orim::Element element = repository_.ElementByID(index_.ElementIdOf(*row));
      element.SetParentID(0);
      element.Save();
      taken_out_.insert(objects_.All()[*movable].Identifier);
      return;
    }
    const auto place = objects_.Find(at);
    const bool will_move = place && PresentParent(at, n) != objects_.All()[*place].Parent;
    if (!movable && will_move) movable = place;
  }
}

TextView HierarchyPhase::PresentParent(TextView identifier, std::size_t n) const {
  if (const auto place = objects_.Find(identifier); place && *place < n)
    return ParentOf(objects_.All()[*place]);
  const auto row = index_.Find(identifier);
  if (!row || index_.IsCreated(*row) || taken_out_.contains(identifier)) return {};
  return orim_doc_.GetData().At(*row, column::kParent).AsText();
}

}  // namespace kestrune
