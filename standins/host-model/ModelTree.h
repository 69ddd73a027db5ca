// A package's content in the order in which the host's window shows it, for programs that print it.
#pragma once

#include "standins/host-model/TaggedValueTable.h"

namespace kestrune::standins {

struct TreeItem {
  std::int32_t id = 0;  // of the element; a child package is the item of its own element, of type Package
  std::int32_t parent_id = 0;
  std::int32_t package_id = 0;
  std::int32_t tree_pos = 0;
  std::int32_t depth = 0;  // 0 for what lies at the top of the listed package
  Text name;
  Text type;
  std::vector<TaggedValueRow> tagged_values;  // in the order of their making
};

/// All below the package: its elements, each followed by those that have it as their parent, in the order of
/// their positions, and then each child package with its own content. An element whose parent lies elsewhere
/// stands at the top of its package; so does one whose parents go round in a circle.
std::vector<TreeItem> ListTree(Database& model, std::int32_t package_id);

}  // namespace kestrune::standins
