#include "tests/windows/dialogs/DialogStage.h"

namespace kestrune::testing {

void DialogStage::StoreRules(const std::vector<Text>& rules) {
  Text record = LoadResText(text::kRecordHelp) + u"\r\n\r\n";
  for (const Text& rule : rules) record += rule + u"\r\n";
  model.tags = {std::make_shared<PackageModel::Tag>(u"DoorsConnection", u"<memo>", record)};
}

}  // namespace kestrune::testing
