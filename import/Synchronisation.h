// Brings the linked package into line with the module.
#pragma once

#include <unordered_set>

#include "documents/ElementFieldWriter.h"
#include "import/ModuleRows.h"

namespace kestrune {

struct SynchronisationResult {
  std::size_t Restored = 0;
  std::size_t Archived = 0;
  std::vector<Text> FailedFields;  // names of host fields and tagged values that could not be written
};

/// Elements whose object has come back leave the trash package, those whose object has gone move into it, new
/// objects become elements, changed values are written, and the tree follows the module. What agrees already
/// is not touched: a package that is in line costs a handful of questions to the host and no write. Both
/// tables must be loaded.
class Synchronisation {
 public:
  Synchronisation(orim::Repository repository, orim::Package package, const DataTable& module,
                  OrimDoc& orim_doc, ImportProgress& progress);

  /// Throws AutomationError when two elements carry the same identifier, before anything but the trash
  /// package has been changed, and what the host throws when elements are made or moved.
  SynchronisationResult Run();

 private:
  void FindOrMakeTrash();
  void IndexPackage();
  void ProcessTrash();
  void Restore(const std::vector<std::int32_t>& element_ids);
  void Archive(const std::vector<std::int32_t>& element_ids);
  void DetachChildren(std::int32_t element_id);
  void SynchronizeDocuments();
  void CreateElement(const ModuleRow& object);
  void UpdateElement(const ModuleRow& object, std::size_t row);
  void UpdateHierarchy();
  void UpdatePlace(const ModuleRow& object, std::size_t row);

  std::unordered_set<std::int32_t> ElementsInTrash() const;
  std::vector<bool> MatchedRows() const;
  std::size_t LastColumn() const { return orim_doc_.LastColumn(); }
  Text NewElementName(const ModuleRow& object) const;
  /// The module's value as the package holds it: rich text in the host's notes format.
  Variant ModuleValue(const ModuleRow& object, std::size_t column) const;
  void MoveToPackage(std::int32_t element_id, std::int32_t package_id, int line_id);
  void ShowItem(int line_id, const Text& name);
  void ShowWarnings(const std::vector<Text>& warnings);
  [[noreturn]] void ThrowDoubled(const Text& identifier, std::size_t row, std::size_t other_row) const;

  orim::Repository repository_;
  orim::Package package_;
  orim::Package trash_;
  const DataTable& module_;
  OrimDoc& orim_doc_;
  ImportProgress& progress_;
  ModuleRows objects_;
  ElementIndex index_;
  ElementFieldWriter writer_;
  SynchronisationResult result_;
};

}  // namespace kestrune
