// Writes one mapped value into one element of the host.
#pragma once

#include "documents/ElementIndex.h"
#include "documents/ImportProgress.h"
#include "documents/OrimDoc.h"

namespace kestrune {

/// Every write ends in the element, or its tagged value, being saved, so that
/// a failure belongs to the field that caused it. A failure becomes a line of
/// the import window; its field is not written again for any later element.
class ElementFieldWriter {
 public:
  ElementFieldWriter(orim::Repository repository, ImportProgress& progress, const OrimDoc& package,
                     const ElementIndex& index)
      : repository_(std::move(repository)), progress_(progress), package_(package), index_(index) {}

  /// Writes `value` to field `column` of `element`, which stands in `row`. For an element that was in the
  /// package before, the change is shown.
  void Write(orim::Element& element, std::size_t row, std::size_t column, const Variant& value);

  /// Whether the writing of field `column` has failed for any element.
  bool HasFailed(std::size_t column) const { return HasFailed(package_.Column(column).Name); }
  /// The names of the fields whose writing failed.
  const std::vector<Text>& FailedFields() const { return failed_; }

 private:
  bool HasFailed(const Text& name) const;
  void ShowChange(const orim::Element& element, std::size_t row, std::size_t column, const Variant& value);
  void WriteField(const orim::Element& element, std::size_t row, std::size_t column,
                  const Variant& value) const;
  /// Whether the package query has answered a value for the field.
  bool IsStored(std::size_t row, std::size_t column) const;
  std::int32_t ParentIdOf(const Text& identifier) const;

  orim::Repository repository_;
  ImportProgress& progress_;
  const OrimDoc& package_;
  const ElementIndex& index_;
  std::vector<Text> failed_;
};

}  // namespace kestrune
