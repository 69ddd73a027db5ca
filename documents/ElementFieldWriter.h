// Writes mapped values into one element of the host.
#pragma once

#include <functional>
#include <span>

#include "documents/ElementIndex.h"
#include "documents/ImportProgress.h"
#include "documents/OrimDoc.h"

namespace kestrune {

struct FieldValue {
  std::size_t Column;
  Variant Value;
};

/// An element that is given values.
struct WrittenElement {
  orim::Element Element;  // another object for the same element after a failure
  std::size_t Row;
  Text Item;  // what it is called to the user
};

/// What an element holds of the values that it was to be given.
struct WriteResult {
  bool HasAny;
  bool HasAll;
};

/// A field whose writing failed for an element.
struct FailedField {
  std::size_t Column;
  std::size_t Skipped = 0;  // later elements that were not given their value
};

/// The fields of an element, its place in the tree among them, are put and saved together, and each tagged value by
/// itself. What the host refuses together is written one by one, so that a failure belongs to the field that caused it.
/// A failure becomes two lines of the import window, what the host says and where it said so; its field is not written
/// again for any later element.
class ElementFieldWriter {
 public:
  ElementFieldWriter(orim::Repository repository, ImportProgress& progress, const OrimDoc& package,
                     const ElementIndex& index)
      : repository_(std::move(repository)), progress_(progress), package_(package), index_(index) {}

  /// Writes `values`, of which each has a column of its own. Changes of an element that was in the package before are
  /// shown. A new element that does not get its identifier, the first of its values, is given nothing else. Throws what
  /// the host throws when it does not answer the element again after a failure.
  WriteResult Write(WrittenElement& element, std::vector<FieldValue> values);

  /// Whether the writing of field `column` has failed for any element.
  bool HasFailed(std::size_t column) const;
  /// In the order in which they failed.
  const std::vector<FailedField>& FailedFields() const { return failed_; }

 private:
  using TaggedValues = orim::Collection<orim::TaggedValue>;

  /// Takes out what is not tried again; returns how many values the element misses by that.
  std::size_t TakeOutFailed(const WrittenElement& element, std::vector<FieldValue>& values);
  void ShowChange(const WrittenElement& element, const FieldValue& value);
  /// False when the element did not get its identifier.
  bool WriteTaggedValues(WrittenElement& element, std::span<const FieldValue> values);
  void WriteFields(WrittenElement& element, std::span<const FieldValue> values);
  bool TryToWriteTogether(WrittenElement& element, std::span<const FieldValue> values);
  /// Does what writes the field; false when it failed, which is told.
  bool Try(WrittenElement& element, std::size_t column, const std::function<void()>& write);
  void ShowFailure(const AutomationError& failure, std::size_t column, const Text& item);
  /// The host's object still holds what was refused, and would fail with every later value as well.
  void FetchAfresh(WrittenElement& element) const;
  void PutField(const orim::Element& element, const FieldValue& value) const;
  /// Whether the tagged value had to be made.
  bool WriteTaggedValue(const TaggedValues& all, bool is_bare, std::size_t row,
                        const FieldValue& value) const;
  orim::TaggedValue FindTaggedValue(const TaggedValues& all, std::size_t row, std::size_t column) const;
  /// Whether the package query has answered a tagged value for that cell.
  bool WasAnswered(std::size_t row, std::size_t column) const;
  std::int32_t ParentIdOf(const Text& identifier) const;

  orim::Repository repository_;
  ImportProgress& progress_;
  const OrimDoc& package_;
  const ElementIndex& index_;
  std::vector<FailedField> failed_;
};

}  // namespace kestrune
