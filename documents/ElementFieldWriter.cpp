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

WriteResult ElementFieldWriter::Write(WrittenElement& element, std::vector<FieldValue> values) {
  const std::size_t failed_before = failed_.size();
  const bool is_missing_some = TakeOutFailed(element, values) != 0;
  for (const FieldValue& value : values) ShowChange(element, value);
  const auto first_field =
      std::stable_partition(values.begin(), values.end(), [this](const FieldValue& value) {
        return package_.Column(value.Column).Place == ImportColumn::Place::kTaggedValue;
      });
  if (!WriteTaggedValues(element, {values.begin(), first_field})) return {.HasAny = false, .HasAll = false};
  WriteFields(element, {first_field, values.end()});
  const std::size_t failures = failed_.size() - failed_before;
  return {.HasAny = values.size() > failures, .HasAll = failures == 0 && !is_missing_some};
}

bool ElementFieldWriter::HasFailed(std::size_t column) const {
  return std::ranges::find(failed_, column, &FailedField::Column) != failed_.end();
}

std::size_t ElementFieldWriter::TakeOutFailed(const WrittenElement& element,
                                              std::vector<FieldValue>& values) {
  std::size_t missed = 0;
  std::erase_if(values, [&](const FieldValue& value) {
    const auto failed = std::ranges::find(failed_, value.Column, &FailedField::Column);
    if (failed == failed_.end()) return false;
    const bool is_missed = !index_.IsCreated(element.Row) || !(value.Value == Variant());
    failed->Skipped += is_missed;
    missed += is_missed;
    return true;
  });
  return missed;
}

void ElementFieldWriter::ShowChange(const WrittenElement& element, const FieldValue& value) {
  if (index_.IsCreated(element.Row)) return;
  const Text before = package_.GetData().At(element.Row, value.Column).ToText();
  progress_.ProgressModify(
      element.Item, package_.Column(value.Column).Name + u": " + before + u" --> " + value.Value.ToText());
}

bool ElementFieldWriter::WriteTaggedValues(WrittenElement& element, std::span<const FieldValue> values) {
  TaggedValues all;
  bool is_bare = false, has_made = false;
  for (const FieldValue& value : values) {
    const bool is_written = Try(element, value.Column, [&] {
      if (!all) {
        all = element.Element.TaggedValues();
        is_bare = index_.IsCreated(element.Row) && all.Count() == 0;
      }
      has_made |= WriteTaggedValue(all, is_bare, element.Row, value);
      if (has_made && &value == &values.back()) all.Refresh();
    });
    if (is_written) continue;
    if (value.Column == column::kIdentifier) return false;
    all = {};
  }
  return true;
}

void ElementFieldWriter::WriteFields(WrittenElement& element, std::span<const FieldValue> values) {
  if (values.size() > 1 && TryToWriteTogether(element, values)) return;
  for (const FieldValue& value : values) {
    Try(element, value.Column, [&] {
      PutField(element.Element, value);
      element.Element.Save();
    });
  }
}

bool ElementFieldWriter::TryToWriteTogether(WrittenElement& element, std::span<const FieldValue> values) {
  try {
    for (const FieldValue& value : values) PutField(element.Element, value);
    element.Element.Save();
    return true;
  } catch (const AutomationError&) {
    FetchAfresh(element);
    return false;
  }
}

bool ElementFieldWriter::Try(WrittenElement& element, std::size_t column,
                             const std::function<void()>& write) {
  try {
    write();
    return true;
  } catch (const AutomationError& failure) {
    ShowFailure(failure, column, element.Item);
    failed_.push_back({column});
    FetchAfresh(element);
    return false;
  }
}

void ElementFieldWriter::ShowFailure(const AutomationError& failure, std::size_t column, const Text& item) {
  progress_.Progress(FormatResText(text::kErrorLine, {failure.Description}));
  const Text where = FormatResText(text::kFieldNotWritten, {package_.Column(column).Name, item});
  progress_.Progress(FormatResText(text::kWarningLine, {where}));
}

void ElementFieldWriter::FetchAfresh(WrittenElement& element) const {
  element.Element = repository_.ElementByID(element.Element.ElementID());
}

void ElementFieldWriter::PutField(const orim::Element& element, const FieldValue& value) const {
  const ImportColumn& column = package_.Column(value.Column);
  switch (column.Place) {
    case ImportColumn::Place::kElementField:
      return element.SetField(column.Name, value.Value.ToText());
    case ImportColumn::Place::kParent:
      return element.SetParentID(ParentIdOf(value.Value.ToText()));
    case ImportColumn::Place::kPosition:
      return element.SetTreePos(value.Value.ToInt());
    case ImportColumn::Place::kLevel:
    case ImportColumn::Place::kTaggedValue:
      return;
  }
}

bool ElementFieldWriter::WriteTaggedValue(const TaggedValues& all, bool is_bare, std::size_t row,
                                          const FieldValue& value) const {
  const Text text = value.Value.ToText();
  const bool needs_memo = NeedsMemo(text);
  const Text short_value = needs_memo ? Text(orim::kMemoValue) : text;
  orim::TaggedValue tagged_value = is_bare ? orim::TaggedValue() : FindTaggedValue(all, row, value.Column);
  const bool is_new = !tagged_value;
  bool had_memo = false;
  if (is_new) {
    tagged_value = all.AddNew(package_.Column(value.Column).Name, short_value);
  } else {
    const bool is_known = WasAnswered(row, value.Column);
    had_memo = (is_known ? Text(package_.GetData().At(row, value.Column).AsText()) : tagged_value.Value()) ==
               orim::kMemoValue;
    tagged_value.SetValue(short_value);
  }
  if (needs_memo || had_memo) tagged_value.SetNotes(needs_memo ? text : Text());
  tagged_value.Save();
  return is_new;
}

orim::TaggedValue ElementFieldWriter::FindTaggedValue(const TaggedValues& all, std::size_t row,
                                                      std::size_t column) const {
  const Text& name = package_.Column(column).Name;
  if (!WasAnswered(row, column)) return TryToGet(all, name);
  if (package_.IsDoubled(row, column))
    return LastWithValue(all, name, package_.GetData().At(row, column).AsText());
  return all.GetByName(name);
}

bool ElementFieldWriter::WasAnswered(std::size_t row, std::size_t column) const {
  return !index_.IsCreated(row) && !package_.GetData().At(row, column).IsEmpty();
}

std::int32_t ElementFieldWriter::ParentIdOf(const Text& identifier) const {
  if (identifier.empty()) return 0;
  const auto row = index_.Find(identifier);
  return row ? index_.ElementIdOf(*row) : 0;
}

}  // namespace kestrune
