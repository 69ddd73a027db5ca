// One module as a session sees it: definitions, objects in document order and values, read from the database
// in one pass per table when the module is opened.
#pragma once

#include <unordered_map>

#include "standins/doors-database/DoorsDatabase.h"

namespace kestrune::standins {

enum class TablePart { kNone, kTable, kRow, kCell };

struct AttributeDefinition {
  std::int64_t id = 0;
  Text name;
  Text type;
  bool on_object = true;
  bool on_module = false;
  bool system = false;
  bool multi = false;
  bool readable = true;
};

/// Objects are known by their place in document order, which is depth first.
struct DoorsObject {
  int absolute_number = 0;
  int parent = -1;  // -1: top level
  int level = 1;
  int end = 0;  // one past the last object below this one
  bool deleted = false;
  bool readable = true;
  TablePart part = TablePart::kNone;
};

class ModuleContent {
 public:
  static constexpr int kNone = -1;

  /// Throws AutomationError when the objects form no tree.
  ModuleContent(DoorsDatabase& database, ItemId module);

  const std::vector<DoorsObject>& Objects() const { return objects_; }
  const std::vector<AttributeDefinition>& Attributes() const { return attributes_; }
  /// The object of that absolute number, or kNone.
  int ObjectAt(int absolute_number) const;
  /// The attribute of that name, or kNone.
  int AttributeAt(TextView name) const;

  /// "" where the object has no value.
  const Text& Value(int object, int attribute) const;
  /// The value in DOORS' markup.
  Text RichValue(int object, int attribute) const;
  bool HasValue(int object, int attribute) const { return Cell(object, attribute) != kNone; }
  const Text& ModuleValue(int attribute) const;

 private:
  struct Stored {
    Text text;
    std::unique_ptr<Text> rich;
  };
  using IndexById = std::unordered_map<std::int64_t, int>;

  IndexById ReadAttributes(Database& database, ItemId module);
  IndexById ReadObjects(Database& database, ItemId module);
  void ReadValues(Database& database, ItemId module, const IndexById& objects, const IndexById& attributes);
  void ReadModuleValues(Database& database, ItemId module, const IndexById& attributes);
  void AddAbsoluteNumbers();

  int Cell(int object, int attribute) const {
    return cells_[static_cast<std::size_t>(object) * attributes_.size() +
                  static_cast<std::size_t>(attribute)];
  }
  void SetCell(int object, int attribute, Stored value);

  std::vector<AttributeDefinition> attributes_;
  std::unordered_map<Text, int> attribute_by_name_;
  std::vector<DoorsObject> objects_;
  std::unordered_map<int, int> object_by_number_;
  std::vector<int> cells_;  // by object and attribute: an index into values_, or kNone
  std::vector<Stored> values_;
  std::unordered_map<int, Text> module_values_;
};

}  // namespace kestrune::standins
