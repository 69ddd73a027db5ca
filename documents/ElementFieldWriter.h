// Writes one mapped value into one element of the host.
#pragma once

#include "documents/ElementIndex.h"
#include "documents/ImportProgress.h"
#include "documents/OrimDoc.h"

namespace kestrune {

/// A field whose writing failed for an element.
struct FailedField {
  std::size_t Column;
  std::size_t Skipped = 0;  // later elements that were not given their value
};

/// Every write ends in the element, or its tagged value, being saved, so that a failure belongs to the field that
/// caused it. A failure becomes two lines of the import window, what the host says and where it said so; its field is
/// not written again for any later element.
class ElementFieldWriter {
 public:
  ElementFieldWriter(orim::Repository repository, ImportProgress& progress, const OrimDoc& package,
                     const ElementIndex& index)
      : repository_(std::move(repository)), progress_(progress), package_(package), index_(index) {}

  /// Writes `value` to field `column` of `element`, which stands in `row` and is called `item` to the user; true when
  /// the element holds it then. For an element that was in the package before, the change is shown.
  bool Write(orim::Element& element, std::size_t row, std::size_t column, const Variant& value,
             const Text& item);

  /// Whether the writing of field `column` has failed for any element.
  bool HasFailed(std::size_t column) const;
  /// In the order in which they failed.
  const std::vector<FailedField>& FailedFields() const { return failed_; }

 private:
  bool Skip(std::size_t column, bool is_missed);
  void ShowFailure(const AutomationError& failure, std::size_t column, const Text& item);
  void WriteField(const orim::Element& element, std::size_t row, std::size_t column,
                  const Variant& value) const;
  void WriteTaggedValue(const orim::Element& element, std::size_t row, std::size_t column,
                        const Text& text) const;
  orim::TaggedValue FindTaggedValue(const orim::Collection<orim::TaggedValue>& all, std::size_t row,
                                    std::size_t column) const;
  std::int32_t ParentIdOf(const Text& identifier) const;

  orim::Repository repository_;
  ImportProgress& progress_;
  const OrimDoc& package_;
  const ElementIndex& index_;
  std::vector<FailedField> failed_;
};

}  // namespace kestrune
