#include "standins/doors-database/ObjectTree.h"

namespace kestrune::standins {

namespace {

constexpr int kNone = ModuleContent::kNone;

struct Row {
  std::int64_t id = 0;
  std::int64_t parent = 0;  // 0: top level
  DoorsObject object;
  int next_sibling = kNone;
  int first_child = kNone;
  int last_child = kNone;
};

TablePart TablePartNamed(TextView name) {
  if (name == u"table") return TablePart::kTable;
  if (name == u"row") return TablePart::kRow;
  if (name == u"cell") return TablePart::kCell;
  return TablePart::kNone;
}

[[noreturn]] void RefuseObject(const Row& row, TextView why) {
  throw AutomationError(
      error::kFileFailure, u"DoorsDatabase",
      Text(u"The object with the absolute number ").append(ToText(row.object.absolute_number)).append(why));
}

/// In the order of siblings.
std::vector<Row> ReadRows(Database& database, ItemId module) {
  Statement statement = database.Prepare(
      "SELECT id, ifnull(parent, 0), absolute_number, deleted, readable, table_part FROM object WHERE module "
      "= ? "
      "ORDER BY position, id",
      module);
  std::vector<Row> rows;
  while (statement.Step()) {
    Row row{statement.Int64(0), statement.Int64(1), {}};
    row.object.absolute_number = statement.Int(2);
    row.object.deleted = statement.Int(3) != 0;
    row.object.readable = statement.Int(4) != 0;
    row.object.part = TablePartNamed(statement.View(5));
    rows.push_back(row);
  }
  return rows;
}

/// Links children to their parents; the last row stands for the module.
void LinkRows(std::vector<Row>& rows) {
  std::unordered_map<std::int64_t, std::size_t> index;
  for (std::size_t i = 0; i < rows.size(); ++i) index[rows[i].id] = i;
  index[0] = rows.size();
  rows.push_back({});
  for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
    const auto found = index.find(rows[i].parent);
    if (found == index.end()) RefuseObject(rows[i], u" has a parent outside its module");
    Row& parent = rows[found->second];
    const int self = static_cast<int>(i);
    if (parent.first_child == kNone) {
      parent.first_child = self;
    } else {
      rows[static_cast<std::size_t>(parent.last_child)].next_sibling = self;
    }
    parent.last_child = self;
  }
}

class Walk {
 public:
  explicit Walk(std::vector<Row>& rows) : rows_(rows) {}

  ObjectTree Run() {
    int next = rows_.back().first_child;
    while (next != kNone || !open_.empty()) {
      if (next != kNone) {
        next = Enter(rows_[static_cast<std::size_t>(next)]);
      } else {
        next = Leave();
      }
    }
    return std::move(tree_);
  }

 private:
  int Enter(Row& row) {
    const int place = static_cast<int>(tree_.objects.size());
    row.object.parent = open_.empty() ? kNone : tree_.place_by_id.at(open_.back()->id);
    row.object.level = static_cast<int>(open_.size()) + 1;
    tree_.place_by_id[row.id] = place;
    tree_.objects.push_back(row.object);
    open_.push_back(&row);
    return row.first_child;
  }

  int Leave() {
    const Row& row = *open_.back();
    open_.pop_back();
    const auto place = static_cast<std::size_t>(tree_.place_by_id.at(row.id));
    tree_.objects[place].end = static_cast<int>(tree_.objects.size());
    return row.next_sibling;
  }

  std::vector<Row>& rows_;
  std::vector<const Row*> open_;  // from the top level to the object being visited
  ObjectTree tree_;
};

}  // namespace

ObjectTree ReadObjectTree(Database& database, ItemId module) {
  auto rows = ReadRows(database, module);
  LinkRows(rows);
  ObjectTree tree = Walk(rows).Run();
  rows.pop_back();
  for (const Row& row : rows)
    if (!tree.place_by_id.contains(row.id))
      RefuseObject(row, u" is its own ancestor, or lies below one that is");
  return tree;
}

}  // namespace kestrune::standins
