// The last phase of an import: the element tree follows the module.
#pragma once

#include <unordered_set>

#include "documents/ElementFieldWriter.h"
#include "import/ModuleRows.h"

namespace kestrune {

/// Elements are given their parent and position one by one, in module order. Where the module lists a child before its
/// parent, an element may on the way be asked to lie below one that still lies below it, which the host refuses; that
/// circle is opened first.
class HierarchyPhase {
 public:
  /// What became of an object's place.
  enum class Place { kKept, kMoved, kFailed };

  /// `stuck_in_trash` are rows whose elements cannot be anybody's parent.
  HierarchyPhase(orim::Repository repository, const DataTable& module, const ModuleRows& objects,
                 const OrimDoc& orim_doc, const ElementIndex& index,
                 const std::unordered_set<std::size_t>& stuck_in_trash, ElementFieldWriter& writer)
      : repository_(std::move(repository)),
        module_(module),
        objects_(objects),
        orim_doc_(orim_doc),
        index_(index),
        stuck_in_trash_(stuck_in_trash),
        writer_(writer),
        is_settled_(objects.All().size()) {}

  /// The n-th object, whose element stands in `row`. `item` tells what the element is called to the user.
  Place Update(std::size_t n, std::size_t row, const std::function<Text(const orim::Element&)>& item);

 private:
  TextView ParentOf(const ModuleRow& object) const;
  /// Whether the n-th object will lie where nothing above it moves any more.
  bool Settles(std::size_t n, TextView parent) const;
  /// Takes an element out of the way that lies above `parent` and would come to lie below it.
  void OpenCircle(std::size_t n, TextView parent);
  /// The identifier of the element's parent as the host has it while the n-th object is placed.
  TextView PresentParent(TextView identifier, std::size_t n) const;

  orim::Repository repository_;
  const DataTable& module_;
  const ModuleRows& objects_;
  const OrimDoc& orim_doc_;
  const ElementIndex& index_;
  const std::unordered_set<std::size_t>& stuck_in_trash_;
  ElementFieldWriter& writer_;
  std::vector<bool> is_settled_;            // by the object's place in All()
  std::unordered_set<TextView> taken_out_;  // identifiers of elements that were put at the top for now
};

}  // namespace kestrune
