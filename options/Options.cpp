#include "options/Options.h"

#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "options/OptionsRecord.h"

namespace kestrune {

namespace {

/// The text of the package's record; nothing where it has none.
std::optional<Text> RecordOf(const orim::Package& package) {
  const auto record = package.Element().TaggedValues().Find(Text(kRecordName));
  if (!record) return std::nullopt;
  return record.Notes();
}

}  // namespace

void Options::LoadDefault(const orim::Package& package) {
  Package = package;
  stored_.reset();
  ResetToDefaults();
}

bool Options::Load(const orim::Package& package) {
  Package = package;
  stored_ = RecordOf(package);
  if (!stored_) return false;
  if (IsValidRecord(*stored_)) {
    ResetRules();
  } else {
    ShowMessage(doors_.platform().desktop, LoadResText(text::kInvalidRecord), Icon::kExclamation);
    ResetToDefaults();
  }
  Take(*stored_);
  return true;
}

void Options::Take(const Text& record_text) {
  OptionsRecord record = ReadRecord(record_text);
  Complaints = std::move(record.Complaints);
  RestrictToView = std::move(record.RestrictToView);
  AddRules(std::move(record.Rules));
  Sort();
}

bool Options::EnsureOK(const orim::Package& package, Text module_path, const Dialog& dialog) {
  const Platform& platform = doors_.platform();
  Package = package;
  stored_ = RecordOf(package);
  if (!stored_ || !IsValidRecord(*stored_)) {
    if (stored_) ShowMessage(platform.desktop, LoadResText(text::kInvalidRecord), Icon::kExclamation);
    if (RefuseLocked(platform.desktop, package)) return false;
    if (module_path.empty()) module_path = GetLinkModulePath(platform, package.PackageGuid());
    if (module_path.empty()) {
      ShowMessage(platform.desktop, LoadResText(text::kModulePathNotSet), Icon::kStop);
      return false;
    }
    if (!RefreshDoorsAttributes(module_path, true)) return false;
    Save();
    if (!dialog(*this)) return false;
  }
  ResetRules();
  Take(*stored_);
  return true;
}

void Options::Save() {
  Sort();
  Text record = WriteRecord(RestrictToView, UserRules());
  if (stored_ == record) return;
  const auto tagged_values = Package.Element().TaggedValues();
  auto tagged_value = tagged_values.Find(Text(kRecordName));
  if (!tagged_value) tagged_value = tagged_values.AddNew(Text(kRecordName), Text(orim::kMemoValue));
  tagged_value.SetNotes(record);
  tagged_value.Save();
  tagged_values.Refresh();
  stored_ = std::move(record);
}

void Options::Clear(const orim::Package& pkg) {
  const auto tagged_values = pkg.Element().TaggedValues();
  for (std::int32_t index = 0; index < tagged_values.Count(); ++index) {
    if (tagged_values.GetAt(index).Name() != kRecordName) continue;
    tagged_values.DeleteAt(index, true);
    return tagged_values.Refresh();
  }
}

void Options::SetTemplate(TextView new_template) {
  if (ApplyTemplate(new_template)) return;
  ShowMessage(doors_.platform().desktop, LoadResText(text::kNoTemplate), Icon::kExclamation);
}

}  // namespace kestrune
