#include "tests/windows/dialogs/DialogStage.h"

namespace kestrune::testing {

void DialogStage::StoreRules(const std::vector<Text>& rules) const {
  Text record = LoadResText(text::kRecordHelp) + u"\r\n\r\n";
  for (const Text& rule : rules) record += rule + u"\r\n";
  const auto tags = Package().Element().TaggedValues();
  while (tags.Count() > 0) tags.DeleteAt(0, true);
  const auto tag = tags.AddNew(u"DoorsConnection", u"<memo>");
  tag.SetNotes(record);
  tag.Save();
}

}  // namespace kestrune::testing
