#include "documents/ElementFieldWriter.h"

#include <algorithm>

#include "common/Resources.h"

namespace kestrune {

namespace {

using TaggedValues = orim::Collection<orim::TaggedValue>;

// The literal "<memo>" goes into the memo as well: as a value it would say that the text is there.
bool NeedsMemo(const Text& text) {
  return text.size() > orim::kLongestValue || text == orim::kMemoValue;
}

/// A tagged value that the package query did not answer is not there, or the host has given it to a new element of its
/// own accord. A look through all of them would cost too much where many are made.
orim::TaggedValue TryToGet(const TaggedValues& tagged_values, const Text& name) {
  try {
    return tagged_values.GetByName(name);
  } catch (const AutomationError& failure) {
    if (error::IsConnectionLost(failure.Number)) throw;
    return {};
  }
}

/// Of several with that name the last that holds `value`, which is the one that the package query has answered.
orim::TaggedValue LastWithValue(const TaggedValues& tagged_values, const Text& name, TextView value) {
  orim::TaggedValue found;
  for (std::int32_t i = 0, count = tagged_values.Count(); i < count; ++i) {
    const orim::TaggedValue each = tagged_values.GetAt(i);
    if (each.Name() == name && each.Value() == value) found = each;
  }
  return found ? found : tagged_values.GetByName(name);
}

}  // namespace

bool ElementFieldWriter::Write(orim::Element& element, std::size_t row, std::size_t column,
                               const Variant& value, const Text& item) {
  const bool is_created = index_.IsCreated(row);
  if (HasFailed(column)) return Skip(column, !is_created || !(value == Variant()));
  try {
    if (!is_created) {
      progress_.ProgressModify(item, package_.Column(column).Name + u": " +
                                         package_.GetData().At(row, column).ToText() + u" --> " +
                                         value.ToText());
    }
    WriteField(element, row, column, value);
    return true;
  } catch (const AutomationError& failure) {
    ShowFailure(failure, column, item);
    failed_.push_back({column});
    element = repository_.ElementByID(element.ElementID());
    return false;
  }
}

bool ElementFieldWriter::HasFailed(std::size_t column) const {
  return std::ranges::find(failed_, column, &FailedField::Column) != failed_.end();
}

bool ElementFieldWriter::Skip(std::size_t column, bool is_missed) {
  if (is_missed) ++std::ranges::find(failed_, column, &FailedField::Column)->Skipped;
  return !is_missed;
}

void ElementFieldWriter::ShowFailure(const AutomationError& failure, std::size_t column, const Text& item) {
  progress_.Progress(FormatResText(text::kErrorLine, {failure.Description}));
  const Text where = FormatResText(text::kFieldNotWritten, {package_.Column(column).Name, item});
  progress_.Progress(FormatResText(text::kWarningLine, {where}));
}

void ElementFieldWriter::WriteField(const orim::Element& element, std::size_t row, std::size_t column,
                                    const Variant& value) const {
  const ImportColumn& target = package_.Column(column);
  switch (target.Place) {
    case ImportColumn::Place::kTaggedValue:
      return WriteTaggedValue(element, row, column, value.ToText());
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

void ElementFieldWriter::WriteTaggedValue(const orim::Element& element, std::size_t row, std::size_t column,
                                          const Text& text) const {
  const TaggedValues tagged_values = element.TaggedValues();
  orim::TaggedValue tagged_value = FindTaggedValue(tagged_values, row, column);
  const bool is_new = !tagged_value;
  if (is_new) tagged_value = tagged_values.AddNew(package_.Column(column).Name, u"");
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

orim::TaggedValue ElementFieldWriter::FindTaggedValue(const TaggedValues& all, std::size_t row,
                                                      std::size_t column) const {
  const Text& name = package_.Column(column).Name;
  const bool was_answered = !index_.IsCreated(row) && !package_.GetData().At(row, column).IsEmpty();
  if (!was_answered) return TryToGet(all, name);
  if (package_.IsDoubled(row, column))
    return LastWithValue(all, name, package_.GetData().TextAt(row, column));
  return all.GetByName(name);
}

std::int32_t ElementFieldWriter::ParentIdOf(const Text& identifier) const {
  if (identifier.empty()) return 0;
  const auto row = index_.Find(identifier);
  return row ? index_.ElementIdOf(*row) : 0;
}

}  // namespace kestrune
