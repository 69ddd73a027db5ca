// Brings the linked package into line with the module.
#pragma once

#include "import/HierarchyPhase.h"
#include "import/ModuleRows.h"
#include "import/SynchronisationResult.h"
#include "import/TrashPhase.h"
#include "import/UnfinishedElements.h"

namespace kestrune {

/// Elements whose object has come back leave the trash package, those whose object has gone move into it, new objects
/// become elements, changed values are written, and the tree follows the module. What agrees already is not touched: a
/// package that is in line costs a handful of questions to the host and no write. Both tables must be loaded.
class Synchronisation {
 public:
  Synchronisation(orim::Repository repository, orim::Package package, const DataTable& module,
                  OrimDoc& orim_doc, ImportProgress& progress);

  /// Throws AutomationError when two elements carry the same identifier, before anything but the trash package has been
  /// changed, and what the host throws when elements are made or moved.
  SynchronisationResult Run();

 private:
  /// What befell an element.
  enum Fate : unsigned char { kMade = 1, kChanged = 2, kMoved = 4, kRestored = 8, kFailed = 16 };

  orim::Package FindOrMakeTrash() const;
  void IndexPackage();
  void ProcessTrash(const orim::Package& trash);
  void SynchronizeDocuments();
  void CreateElement(const ModuleRow& object);
  orim::Element MakeElement(const Text& name);
  void RemoveNameless(const orim::Element& element);
  void UpdateElement(const ModuleRow& object, std::size_t row);
  void UpdateHierarchy();
  SynchronisationResult CountUp() const;

  std::vector<bool> MatchedRows() const;
  std::size_t LastColumn() const { return orim_doc_.LastColumn(); }
  /// The column that fills the elements' names; 0 when no rule does.
  std::size_t NameColumn() const;
  /// What the user knows the element as: its name before the import.
  Text ItemName(const ModuleRow& object, std::size_t row, const orim::Element& element) const;
  Text NewElementName(const ModuleRow& object) const;
  /// The module's value as the package is to hold it. A name that is empty or longer than the host takes is replaced by
  /// the identifier: an element without a name cannot be found in the tree, and a refused name would keep all later
  /// elements from theirs.
  Variant ModuleValue(const ModuleRow& object, std::size_t column) const;
  /// The module's value with rich text in the host's notes format.
  Variant Converted(const ModuleRow& object, std::size_t column) const;
  Text ModuleName(const ModuleRow& object) const;
  void Mark(std::size_t row, Fate fate);
  void ShowItem(int line_id, const Text& name);
  void Warn(const Text& warning);
  void WarnOfDoubledValues();
  void WarnOfLongName(const ModuleRow& object);
  [[noreturn]] void ThrowDoubled(const Text& identifier, std::size_t row, std::size_t other_row) const;

  orim::Repository repository_;
  orim::Package package_;
  const DataTable& module_;
  OrimDoc& orim_doc_;
  ImportProgress& progress_;
  ModuleRows objects_;
  ElementIndex index_;
  ElementFieldWriter writer_;
  TrashPhase trash_phase_;
  UnfinishedElements unfinished_;
  std::size_t name_column_;
  std::vector<unsigned char> fates_;  // by row: Fates
  std::size_t not_made_ = 0;
};

}  // namespace kestrune
