// The module's objects as an import can use them: each with an identifier of its own and a parent that leads
// to the top.
#pragma once

#include <optional>
#include <unordered_map>

#include "documents/DataTable.h"

namespace kestrune {

/// Its texts are the table's.
struct ModuleRow {
  std::size_t Row;  // of the module's table
  TextView Identifier;
  TextView Parent;  // the parent's identifier; "" at the top
};

/// Objects without an identifier, and all but the first with the same one, are left out; one link of every
/// circle of parents is cut. Each of that is told in words; a sound module has none of it. A parent that is
/// not there means the top: a table's is not where a view hides it.
class ModuleRows {
 public:
  /// `module` must outlive this.
  explicit ModuleRows(const DataTable& module);

  const std::vector<ModuleRow>& All() const { return rows_; }  // in module order
  /// The place in All() of the object with that identifier, if there is one.
  std::optional<std::size_t> Find(TextView identifier) const;
  const std::vector<Text>& ObjectWarnings() const { return object_warnings_; }
  const std::vector<Text>& ParentWarnings() const { return parent_warnings_; }

 private:
  void CutCircles(const std::vector<std::size_t>& parent_of);

  std::vector<ModuleRow> rows_;
  std::unordered_map<TextView, std::size_t> place_;  // by identifier
  std::vector<Text> object_warnings_;
  std::vector<Text> parent_warnings_;
};

}  // namespace kestrune
