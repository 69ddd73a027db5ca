#include "documents/ElementFieldWriter.h"

#include <algorithm>

#include "common/Resources.h"

namespace kestrune {

namespace {

// The literal "<memo>" goes into the memo as well: as a value it would say that the text is there.
bool NeedsMemo(const Text& text) {
  return text.size() > orim::kLongestValue || text == orim::kMemoValue;
}

using TaggedValues = orim::Collection<orim::TaggedValue>;

/// A tagged value that the package query did not answer is not there, or the host has given it to a new
/// element of its own accord. A look through all of them would cost too much where many are made.
orim::TaggedValue TryToGet(const TaggedValues& tagged_values, const Text& name) {
  try {
    return tagged_values.GetByName(name);
  } catch (const AutomationError& failure) {
    if (error::IsConnectionLost(failure.Number)) throw;
    return {};
  }
}

void WriteTaggedValue(const orim::Element& element, const Text& name, const Text& text, bool is_known) {
  const TaggedValues tagged_values = element.TaggedValues();
  orim::TaggedValue tagged_value = is_known ? tagged_values.GetByName(name) : TryToGet(tagged_values, name);
  const bool is_new = !tagged_value;
  if (is_new) tagged_value = tagged_values.AddNew(name, u"");
  if (NeedsMemo(text)) {
    tagged_value.SetValue(Text(orim::kMemoValue));
    tagged_value.SetNotes(text);
  } else {
    const bool had_memo = !is_new && tagged_value.Value() == orim::kMemoValue;
    tagged_value.SetValue(text);
    if (had_memo) tagged_value.SetNotes(u"");
  }
  tagged_value.Save();
  if (is_new) tagged_values.Refresh();
}

}  // namespace

void ElementFieldWriter::Write(orim::Element& element, std::size_t row, std::size_t column,
                               const Variant& value) {
  const Text& name = package_.Column(column).Name;
  if (HasFailed(name)) return;
  try {
    if (!index_.IsCreated(row)) ShowChange(element, row, column, value);
    WriteField(element, row, column, value);
  } catch (const AutomationError& failure) {
    progress_.Progress(FormatResText(text::kErrorLine, {failure.Description}));
    failed_.push_back(name);
    element = repository_.ElementByID(element.ElementID());
  }
}

bool ElementFieldWriter::HasFailed(const Text& name) const {
  return std::find(failed_.begin(), failed_.end(), name) != failed_.end();
}

void ElementFieldWriter::ShowChange(const orim::Element& element, std::size_t row, std::size_t column,
                                    const Variant& value) {
  const Text old_value = package_.GetData().At(row, column).ToText();
  progress_.ProgressModify(element.Name(),
                           package_.Column(column).Name + u": " + old_value + u" --> " + value.ToText());
}

void ElementFieldWriter::WriteField(const orim::Element& element, std::size_t row, std::size_t column,
                                    const Variant& value) const {
  const ImportColumn& target = package_.Column(column);
  switch (target.Place) {
    case ImportColumn::Place::kTaggedValue:
      return WriteTaggedValue(element, target.Name, value.ToText(), IsStored(row, column));
    case ImportColumn::Place::kElementField:
      element.SetField(target.Name, value.ToText());
      break;
    case ImportColumn::Place::kLevel:
      return;
    case ImportColumn::Place::kParent:
      element.SetParentID(ParentIdOf(value.ToText()));
      break;
    case ImportColumn::Place::kPosition:
      element.SetTreePos(value.ToInt());
      break;
  }
  element.Save();
}

bool ElementFieldWriter::IsStored(std::size_t row, std::size_t column) const {
  return !index_.IsCreated(row) && !package_.GetData().At(row, column).IsEmpty();
}

std::int32_t ElementFieldWriter::ParentIdOf(const Text& identifier) const {
  if (identifier.empty()) return 0;
  const auto row = index_.Find(identifier);
  return row ? index_.ElementIdOf(*row) : 0;
}

}  // namespace kestrune
