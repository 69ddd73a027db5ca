// How Options comes to the package's element and back.

#include "common/Utilities.h"
#include "options/Options.h"
#include "options/OptionsRecord.h"

namespace kestrune {

void Options::LoadDefault(const orim::Package& package) {
  Package = package;
  ResetRules();
  SetTemplate(DefaultTemplate());
}

bool Options::Load(const orim::Package& package) {
  Package = package;
  const auto stored = package.Element().TaggedValues().Find(Text(kRecordName));
  if (!stored) return false;
  const Text text = stored.Notes();
  OptionsRecord record = ReadRecord(text);
  if (IsValidRecord(text)) {
    ResetRules();
  } else {
    ShowMessage(doors_.platform().desktop, LoadResText(text::kInvalidRecord), Icon::kExclamation);
    LoadDefault(package);
  }
  Complaints = std::move(record.Complaints);
  RestrictToView = std::move(record.RestrictToView);
  AddRules(std::move(record.Rules));
  Sort();
  return true;
}

void Options::Clear(const orim::Package& pkg) {
  const auto tagged_values = pkg.Element().TaggedValues();
  for (std::int32_t index = 0; index < tagged_values.Count(); ++index) {
    if (tagged_values.GetAt(index).Name() != kRecordName) continue;
    tagged_values.DeleteAt(index, true);
    return tagged_values.Refresh();
  }
}

void Options::Save() {
  Sort();
  const Text text = WriteRecord(RestrictToView, UserRules());
  const auto tagged_values = Package.Element().TaggedValues();
  auto stored = tagged_values.Find(Text(kRecordName));
  if (stored && stored.Notes() == text) return;
  if (!stored) stored = tagged_values.AddNew(Text(kRecordName), Text(orim::kMemoValue));
  stored.SetNotes(text);
  stored.Save();
  tagged_values.Refresh();
}

}  // namespace kestrune
