#include "import/Synchronisation.h"

#include "common/Utilities.h"

namespace kestrune {

namespace {

constexpr const char16_t* kElementType = u"Requirement";
constexpr std::uint32_t kDoubledKey = 0x800A01C9;  // automation's own number for a key that is there already

Text Number(std::size_t number) {
  return ToText(static_cast<long long>(number));
}

/// As much of it as the host takes for a name, no character cut in two.
Text AsName(TextView identifier) {
  if (identifier.size() <= orim::kLongestValue) return Text(identifier);
  const bool ends_in_half = (identifier[orim::kLongestValue - 1] & 0xFC00) == 0xD800;
  return Text(identifier.substr(0, orim::kLongestValue - (ends_in_half ? 1 : 0)));
}

}  // namespace

Synchronisation::Synchronisation(orim::Repository repository, orim::Package package, const DataTable& module,
                                 OrimDoc& orim_doc, ImportProgress& progress)
    : repository_(std::move(repository)),
      package_(std::move(package)),
      module_(module),
      orim_doc_(orim_doc),
      progress_(progress),
      objects_(module),
      index_(orim_doc.GetData()),
      writer_(repository_, progress, orim_doc, index_),
      trash_phase_(repository_, package_, orim_doc, index_, progress),
      unfinished_(repository_, package_),
      name_column_(NameColumn()) {}

SynchronisationResult Synchronisation::Run() {
  const orim::Package trash = FindOrMakeTrash();
  IndexPackage();
  ProcessTrash(trash);
  SynchronizeDocuments();
  UpdateHierarchy();
  return CountUp();
}

orim::Package Synchronisation::FindOrMakeTrash() const {
  const Text name = LoadResText(text::kTrashCan);
  const auto packages = package_.Packages();
  orim::Package trash = packages.Find(name);
  if (trash) return trash;
  trash = packages.AddNew(name, u"");
  trash.Save();
  return trash;
}

void Synchronisation::IndexPackage() {
  const DataTable& elements = orim_doc_.GetData();
  for (std::size_t row = 1; row <= elements.UpperRow(); ++row) {
    const TextView identifier = elements.At(row, column::kIdentifier).AsText();
    if (const auto other_row = index_.Add(identifier, row)) ThrowDoubled(Text(identifier), row, *other_row);
  }
}

void Synchronisation::ThrowDoubled(const Text& identifier, std::size_t row, std::size_t other_row) const {
  const orim::Element one = repository_.ElementByID(index_.ElementIdOf(other_row));
  const orim::Element other = repository_.ElementByID(index_.ElementIdOf(row));
  const auto package_of = [this](const orim::Element& element) {
    return repository_.PackageByID(element.PackageID()).Name();
  };
  throw AutomationError(kDoubledKey, u"Synchronisation",
                        FormatResText(text::kDoubledInPackage,
                                      {identifier, one.Name(), ToText(one.ElementID()), package_of(one),
                                       other.Name(), ToText(other.ElementID()), package_of(other)}));
}

std::vector<bool> Synchronisation::MatchedRows() const {
  std::vector<bool> matched(orim_doc_.GetData().UpperRow() + 1, false);
  for (const ModuleRow& object : objects_.All())
    if (const auto row = index_.Find(object.Identifier)) matched[*row] = true;
  return matched;
}

void Synchronisation::ProcessTrash(const orim::Package& trash) {
  progress_.Progress(LoadResText(text::kProcessingTrash));
  trash_phase_.Run(trash, MatchedRows());
  for (const std::size_t row : trash_phase_.Restored()) Mark(row, kRestored);
  for (const std::size_t row : trash_phase_.StuckInTrash()) Mark(row, kFailed);
}

void Synchronisation::SynchronizeDocuments() {
  progress_.Progress(LoadResText(text::kSynchronizing));
  for (const Text& warning : objects_.ObjectWarnings()) Warn(warning);
  WarnOfDoubledValues();
  std::size_t done = 0;
  for (const ModuleRow& object : objects_.All()) {
    progress_.ProgressShare(done++, objects_.All().size());
    const auto row = index_.Find(object.Identifier);
    if (!row)
      CreateElement(object);
    else if (!trash_phase_.StuckInTrash().contains(*row))
      UpdateElement(object, *row);
  }
}

void Synchronisation::WarnOfDoubledValues() {
  for (const auto& [row, column] : orim_doc_.Doubled()) {
    const orim::Element element = repository_.ElementByID(index_.ElementIdOf(row));
    Warn(FormatResText(text::kTaggedValueTwice, {element.Name(), orim_doc_.Column(column).Name}));
  }
}

// An element that cannot be given its identifier would be nobody's at the next import, and in the way of those below
// it: nothing may hang on it, and no more of its kind are made.
void Synchronisation::CreateElement(const ModuleRow& object) {
  if (writer_.HasFailed(column::kIdentifier)) {
    ++not_made_;
    return Warn(FormatResText(text::kNotMade, {Text(object.Identifier)}));
  }
  std::vector<FieldValue> values = {{column::kIdentifier, object.Identifier}};
  for (std::size_t c = column::kFirstMapped; c <= LastColumn(); ++c)
    values.push_back({c, ModuleValue(object, c)});
  const Text name = NewElementName(object);
  WrittenElement made{MakeElement(name), index_.NextRow(), name};
  ShowItem(text::kItemNew, name);
  const WriteResult result = writer_.Write(made, std::move(values));
  if (writer_.HasFailed(column::kIdentifier)) {
    ++not_made_;
    return RemoveNameless(made.Element);
  }
  WarnOfLongName(object);
  const std::size_t row = index_.AddCreated(object.Identifier, made.Element.ElementID());
  Mark(row, kMade);
  if (!result.HasAll) Mark(row, kFailed);
}

orim::Element Synchronisation::MakeElement(const Text& name) {
  if (const auto unfinished = unfinished_.Take(name)) return repository_.ElementByID(*unfinished);
  const orim::Element element = package_.Elements().AddNew(name, kElementType);
  element.Save();
  return element;
}

void Synchronisation::RemoveNameless(const orim::Element& element) {
  const std::int32_t id = element.ElementID();
  try {
    const auto elements = package_.Elements();
    for (std::int32_t i = 0, count = elements.Count(); i < count; ++i)
      if (elements.GetAt(i).ElementID() == id) return elements.DeleteAt(i, true);
  } catch (const AutomationError& failure) {
    if (error::IsConnectionLost(failure.Number)) throw;
  }
  Warn(FormatResText(text::kNotRemoved, {element.Name(), ToText(id)}));
}

void Synchronisation::UpdateElement(const ModuleRow& object, std::size_t row) {
  std::vector<FieldValue> values;
  for (std::size_t c = column::kFirstMapped; c <= LastColumn(); ++c) {
    const Cell& value_in_module = module_.At(object.Row, c);
    const Cell stored = orim_doc_.StoredValue(row, c);
    const bool is_written_as_it_is = c != name_column_ && !IsRtf(value_in_module.AsText());
    if (is_written_as_it_is && value_in_module == stored) continue;
    Variant value = ModuleValue(object, c);
    if (value == Variant(stored)) continue;
    if (c == name_column_) WarnOfLongName(object);
    values.push_back({c, std::move(value)});
  }
  if (values.empty()) return;
  const orim::Element element = repository_.ElementByID(index_.ElementIdOf(row));
  WrittenElement changed{element, row, ItemName(object, row, element)};
  const WriteResult result = writer_.Write(changed, std::move(values));
  if (result.HasAny) Mark(row, kChanged);
  if (!result.HasAll) Mark(row, kFailed);
}

void Synchronisation::UpdateHierarchy() {
  progress_.Progress(LoadResText(text::kUpdatingHierarchy));
  for (const Text& warning : objects_.ParentWarnings()) Warn(warning);
  HierarchyPhase phase(repository_, module_, objects_, orim_doc_, index_, trash_phase_.StuckInTrash(),
                       writer_);
  for (std::size_t n = 0; n < objects_.All().size(); ++n) {
    progress_.ProgressShare(n, objects_.All().size());
    const ModuleRow& object = objects_.All()[n];
    const auto row = index_.Find(object.Identifier);
    if (!row || trash_phase_.StuckInTrash().contains(*row)) continue;
    const auto place =
        phase.Update(n, *row, [&](const orim::Element& element) { return ItemName(object, *row, element); });
    if (place == HierarchyPhase::Place::kFailed) Mark(*row, kFailed);
    if (place == HierarchyPhase::Place::kMoved) Mark(*row, kMoved);
  }
}

SynchronisationResult Synchronisation::CountUp() const {
  SynchronisationResult result;
  result.Archived = trash_phase_.Archived().size();
  result.Restored = trash_phase_.Restored().size();
  result.NotMade = result.Failed = not_made_;
  result.FailedFields = writer_.FailedFields();
  for (const ModuleRow& object : objects_.All()) {
    const auto row = index_.Find(object.Identifier);
    if (!row) continue;
    const unsigned fate = *row < fates_.size() ? fates_[*row] : 0;
    result.New += (fate & kMade) != 0;
    result.Changed += (fate & kChanged) != 0;
    result.Moved += (fate & kMoved) != 0 && (fate & kMade) == 0;
    result.Failed += (fate & kFailed) != 0;
    result.Unchanged += fate == 0;
  }
  return result;
}

void Synchronisation::Mark(std::size_t row, Fate fate) {
  if (row >= fates_.size()) fates_.resize(row + 1);
  fates_[row] = static_cast<unsigned char>(fates_[row] | fate);
}

std::size_t Synchronisation::NameColumn() const {
  for (std::size_t c = column::kFirstMapped; c <= LastColumn(); ++c) {
    const ImportColumn& target = orim_doc_.Column(c);
    if (target.Place == ImportColumn::Place::kElementField && target.Name == u"Name") return c;
  }
  return 0;
}

Text Synchronisation::ItemName(const ModuleRow& object, std::size_t row, const orim::Element& element) const {
  if (index_.IsCreated(row)) return NewElementName(object);
  return name_column_ == 0 ? element.Name() : orim_doc_.GetData().At(row, name_column_).ToText();
}

Text Synchronisation::NewElementName(const ModuleRow& object) const {
  return name_column_ == 0 ? AsName(object.Identifier) : ModuleValue(object, name_column_).ToText();
}

Variant Synchronisation::ModuleValue(const ModuleRow& object, std::size_t column) const {
  if (column != name_column_) return Converted(object, column);
  Text name = ModuleName(object);
  const bool is_taken = !name.empty() && name.size() <= orim::kLongestValue;
  return is_taken ? std::move(name) : AsName(object.Identifier);
}

Variant Synchronisation::Converted(const ModuleRow& object, std::size_t column) const {
  const Cell& value = module_.At(object.Row, column);
  return IsRtf(value.AsText()) ? Variant(RtfToNotes(repository_, value.ToText())) : Variant(value);
}

Text Synchronisation::ModuleName(const ModuleRow& object) const {
  return Converted(object, name_column_).ToText();
}

void Synchronisation::WarnOfLongName(const ModuleRow& object) {
  if (name_column_ == 0) return;
  const std::size_t length = ModuleName(object).size();
  if (length > orim::kLongestValue)
    Warn(FormatResText(text::kNameTooLong, {Text(object.Identifier), Number(length)}));
}

void Synchronisation::ShowItem(int line_id, const Text& name) {
  progress_.Progress(u"   " + FormatResText(line_id, {name}));
}

void Synchronisation::Warn(const Text& warning) {
  progress_.Progress(FormatResText(text::kWarningLine, {warning}));
}

}  // namespace kestrune
