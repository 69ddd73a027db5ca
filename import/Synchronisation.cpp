#include "import/Synchronisation.h"

#include "common/Utilities.h"

namespace kestrune {

namespace {

constexpr const char16_t* kElementType = u"Requirement";
constexpr std::uint32_t kDoubledKey = 0x800A01C9;  // automation's own number for a key that is there already

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
      writer_(repository_, progress, orim_doc, index_) {}

SynchronisationResult Synchronisation::Run() {
  FindOrMakeTrash();
  IndexPackage();
  ProcessTrash();
  SynchronizeDocuments();
  UpdateHierarchy();
  result_.FailedFields = writer_.FailedFields();
  return result_;
}

void Synchronisation::FindOrMakeTrash() {
  const Text name = LoadResText(text::kTrashCan);
  const auto packages = package_.Packages();
  trash_ = packages.Find(name);
  if (trash_) return;
  trash_ = packages.AddNew(name, u"");
  trash_.Save();
}

void Synchronisation::IndexPackage() {
  const DataTable& elements = orim_doc_.GetData();
  for (std::size_t row = 1; row <= elements.UpperRow(); ++row) {
    const Text identifier = elements.At(row, column::kIdentifier).ToText();
    if (const auto other_row = index_.Add(identifier, row)) ThrowDoubled(identifier, row, *other_row);
  }
}

void Synchronisation::ThrowDoubled(const Text& identifier, std::size_t row, std::size_t other_row) const {
  const std::int32_t id = index_.ElementIdOf(row);
  const std::int32_t other_id = index_.ElementIdOf(other_row);
  throw AutomationError(kDoubledKey, u"Synchronisation",
                        FormatResText(text::kDoubledInPackage,
                                      {identifier, repository_.ElementByID(other_id).Name(), ToText(other_id),
                                       repository_.ElementByID(id).Name(), ToText(id)}));
}

// The package query does not say where an element lies; the
// same query over the trash package alone does, for all.
std::unordered_set<std::int32_t> Synchronisation::ElementsInTrash() const {
  std::unordered_set<std::int32_t> ids;
  const Text sql = FormatText(LoadSql(sql_text::kPackageContent), {ToText(trash_.PackageID())});
  const QueryAnswer answer(repository_, sql, {u"Object_ID"});
  answer.ForEach([&](const QueryAnswer::Row& row) { ids.insert(row.GetNumber(0)); });
  return ids;
}

std::vector<bool> Synchronisation::MatchedRows() const {
  std::vector<bool> matched(orim_doc_.GetData().UpperRow() + 1, false);
  for (const ModuleRow& object : objects_.All())
    if (const auto row = index_.Find(object.Identifier)) matched[*row] = true;
  return matched;
}

void Synchronisation::ProcessTrash() {
  progress_.Progress(LoadResText(text::kProcessingTrash));
  const auto matched = MatchedRows();
  const auto in_trash = ElementsInTrash();
  std::vector<std::int32_t> archive;
  std::vector<std::int32_t> restore;
  for (std::size_t row = 1; row < matched.size(); ++row) {
    const std::int32_t id = index_.ElementIdOf(row);
    const bool is_in_trash = in_trash.contains(id);
    if (matched[row] && is_in_trash) restore.push_back(id);
    if (matched[row] || is_in_trash) continue;
    archive.push_back(id);
    DetachChildren(id);
  }
  Restore(restore);
  Archive(archive);
}

// The children stay in the package when their parent leaves
// it; the hierarchy phase gives them their new parent.
void Synchronisation::DetachChildren(std::int32_t element_id) {
  const Text sql = FormatText(LoadSql(sql_text::kChildren), {ToText(element_id)});
  const QueryAnswer answer(repository_, sql, {u"Object_ID"});
  answer.ForEach([&](const QueryAnswer::Row& row) {
    const orim::Element child = repository_.ElementByID(row.GetNumber(0));
    child.SetParentID(0);
    child.Save();
  });
}

void Synchronisation::Restore(const std::vector<std::int32_t>& element_ids) {
  for (const std::int32_t id : element_ids) MoveToPackage(id, package_.PackageID(), text::kItemRestored);
  result_.Restored = element_ids.size();
}

void Synchronisation::Archive(const std::vector<std::int32_t>& element_ids) {
  for (const std::int32_t id : element_ids) MoveToPackage(id, trash_.PackageID(), text::kItemArchived);
  result_.Archived = element_ids.size();
}

void Synchronisation::MoveToPackage(std::int32_t element_id, std::int32_t package_id, int line_id) {
  const orim::Element element = repository_.ElementByID(element_id);
  element.SetPackageID(package_id);
  ShowItem(line_id, element.Name());
  element.Save();
}

void Synchronisation::SynchronizeDocuments() {
  progress_.Progress(LoadResText(text::kSynchronizing));
  ShowWarnings(objects_.ObjectWarnings());
  for (const ModuleRow& object : objects_.All()) {
    if (const auto row = index_.Find(object.Identifier))
      UpdateElement(object, *row);
    else
      CreateElement(object);
  }
}

// An element that cannot be given its identifier would be nobody's at the next import, and in the way of
// those below it: nothing may hang on it, and no more of its kind are made.
void Synchronisation::CreateElement(const ModuleRow& object) {
  if (writer_.HasFailed(column::kIdentifier))
    return ShowWarnings({FormatResText(text::kNotMade, {object.Identifier})});
  orim::Element element = package_.Elements().AddNew(NewElementName(object), kElementType);
  element.Save();
  ShowItem(text::kItemNew, element.Name());
  writer_.Write(element, index_.NextRow(), column::kIdentifier, object.Identifier);
  if (writer_.HasFailed(column::kIdentifier)) return;
  const std::size_t row = index_.AddCreated(object.Identifier, element.ElementID());
  for (std::size_t c = column::kFirstMapped; c <= LastColumn(); ++c)
    writer_.Write(element, row, c, ModuleValue(object, c));
}

// The element is made under a name that the host takes; a
// name that it refuses is then the failure of the field.
Text Synchronisation::NewElementName(const ModuleRow& object) const {
  for (std::size_t c = column::kFirstMapped; c <= LastColumn(); ++c) {
    const ImportColumn& target = orim_doc_.Column(c);
    if (target.Place != ImportColumn::Place::kElementField || target.Name != u"Name") continue;
    const Text name = module_.At(object.Row, c).ToText();
    if (!name.empty() && name.size() <= orim::kLongestValue) return name;
  }
  return object.Identifier;
}

void Synchronisation::UpdateElement(const ModuleRow& object, std::size_t row) {
  orim::Element element;
  for (std::size_t c = column::kFirstMapped; c <= LastColumn(); ++c) {
    const Variant value = ModuleValue(object, c);
    if (value == orim_doc_.StoredValue(row, c)) continue;
    if (!element) element = repository_.ElementByID(index_.ElementIdOf(row));
    writer_.Write(element, row, c, value);
  }
}

Variant Synchronisation::ModuleValue(const ModuleRow& object, std::size_t column) const {
  const Variant& value = module_.At(object.Row, column);
  if (value.IsText() && IsRtf(value.AsText())) return RtfToNotes(repository_, value.AsText());
  return value;
}

void Synchronisation::UpdateHierarchy() {
  progress_.Progress(LoadResText(text::kUpdatingHierarchy));
  ShowWarnings(objects_.ParentWarnings());
  for (const ModuleRow& object : objects_.All())
    if (const auto row = index_.Find(object.Identifier)) UpdatePlace(object, *row);
}

void Synchronisation::UpdatePlace(const ModuleRow& object, std::size_t row) {
  const bool is_created = index_.IsCreated(row);
  const DataTable& elements = orim_doc_.GetData();
  orim::Element element;
  const auto update = [&](std::size_t column, const Variant& value) {
    if (!is_created && value == elements.At(row, column)) return;
    if (!element) element = repository_.ElementByID(index_.ElementIdOf(row));
    writer_.Write(element, row, column, value);
  };
  update(column::kParent, object.Parent);
  update(column::kPosition, module_.At(object.Row, column::kPosition));
}

void Synchronisation::ShowItem(int line_id, const Text& name) {
  progress_.Progress(u"   " + FormatResText(line_id, {name}));
}

void Synchronisation::ShowWarnings(const std::vector<Text>& warnings) {
  for (const Text& warning : warnings) progress_.Progress(FormatResText(text::kWarningLine, {warning}));
}

}  // namespace kestrune
