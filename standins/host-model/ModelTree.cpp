#include "standins/host-model/ModelTree.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "standins/host-model/ElementTable.h"

namespace kestrune::standins {

namespace {

/// One package's elements, put in order.
class PackageContent {
 public:
  PackageContent(Database& model, std::int32_t package_id) {
    Statement rows = model.Prepare(
        "SELECT Object_ID, ParentID, TPos, Name, Object_Type FROM t_object"
        " WHERE Package_ID = ? AND Object_Type <> 'Package' ORDER BY TPos, Object_ID",
        package_id);
    while (rows.Step()) {
      elements_.push_back({.id = rows.Int(0),
                           .parent_id = rows.Int(1),
                           .package_id = package_id,
                           .tree_pos = rows.Int(2),
                           .depth = 0,
                           .name = rows.GetText(3),
                           .type = rows.GetText(4),
                           .tagged_values = {}});
    }
  }

  /// Appends the elements to `items`, those at the top with `depth`.
  void AppendTo(std::vector<TreeItem>& items, std::int32_t depth) {
    for (std::size_t i = 0; i < elements_.size(); ++i) index_.emplace(elements_[i].id, i);
    for (std::size_t i = 0; i < elements_.size(); ++i) children_[elements_[i].parent_id].push_back(i);
    for (std::size_t i = 0; i < elements_.size(); ++i)
      if (!index_.count(elements_[i].parent_id)) AppendBranch(items, i, depth);
    for (std::size_t i = 0; i < elements_.size(); ++i)
      AppendBranch(items, i, depth);  // what only circles reach
  }

 private:
  struct Pending {
    std::size_t index;
    std::int32_t depth;
  };

  void AppendBranch(std::vector<TreeItem>& items, std::size_t top, std::int32_t depth) {
    std::vector<Pending> pending = {{top, depth}};
    while (!pending.empty()) {
      const Pending next = pending.back();
      pending.pop_back();
      TreeItem& element = elements_[next.index];
      if (!listed_.insert(element.id).second) continue;
      element.depth = next.depth;
      items.push_back(element);
      const std::vector<std::size_t>& below = children_[element.id];
      for (auto child = below.rbegin(); child != below.rend(); ++child)
        pending.push_back({*child, next.depth + 1});
    }
  }

  std::vector<TreeItem> elements_;  // by position
  std::unordered_map<std::int32_t, std::size_t> index_;
  std::unordered_map<std::int32_t, std::vector<std::size_t>> children_;
  std::unordered_set<std::int32_t> listed_;
};

struct PendingPackage {
  std::int32_t id;
  TreeItem item;
};

/// The child packages, last one first, as a stack wants them.
std::vector<PendingPackage> ChildPackages(Database& model, std::int32_t package_id, std::int32_t depth) {
  Statement rows = model.Prepare(
      "SELECT p.Package_ID, p.Element_ID, o.TPos, p.Name FROM t_package p JOIN t_object o ON o.Object_ID = "
      "p.Element_ID"
      " WHERE p.Parent_ID = ? ORDER BY o.TPos DESC, p.Package_ID DESC",
      package_id);
  std::vector<PendingPackage> packages;
  while (rows.Step()) {
    packages.push_back({rows.Int(0),
                        {.id = rows.Int(1),
                         .parent_id = 0,
                         .package_id = package_id,
                         .tree_pos = rows.Int(2),
                         .depth = depth,
                         .name = rows.GetText(3),
                         .type = kPackageType,
                         .tagged_values = {}}});
  }
  return packages;
}

void AddTaggedValues(Database& model, TreeItem& item) {
  Statement rows = model.Prepare(
      "SELECT PropertyID, Property, Value, Notes FROM t_objectproperties WHERE Object_ID = ? ORDER BY 1",
      item.id);
  while (rows.Step()) {
    item.tagged_values.push_back({.id = rows.Int(0),
                                  .element_id = item.id,
                                  .name = rows.GetText(1),
                                  .value = rows.GetText(2),
                                  .notes = rows.GetText(3)});
  }
}

}  // namespace

std::vector<TreeItem> ListTree(Database& model, std::int32_t package_id) {
  std::vector<TreeItem> items;
  PackageContent(model, package_id).AppendTo(items, 0);
  std::vector<PendingPackage> pending = ChildPackages(model, package_id, 0);
  std::unordered_set<std::int32_t> seen = {package_id};
  while (!pending.empty()) {
    const PendingPackage package = std::move(pending.back());
    pending.pop_back();
    if (!seen.insert(package.id).second) continue;
    items.push_back(package.item);
    const std::int32_t depth = package.item.depth + 1;
    PackageContent(model, package.id).AppendTo(items, depth);
    for (PendingPackage& child : ChildPackages(model, package.id, depth)) pending.push_back(std::move(child));
  }
  for (TreeItem& item : items) AddTaggedValues(model, item);
  return items;
}

}  // namespace kestrune::standins
