// The wizard that asks, page by page, what becomes of one DOORS attribute: the second attribute to combine it
// with, the separator between the two, and the target. It makes a rule text and changes nothing itself.
#pragma once

#include "options/LinkSettings.h"
#include "platform/Desktop.h"

namespace kestrune {

class frmMapWizard : public Form {
 public:
  explicit frmMapWizard(Desktop& desktop);

  TextView ClassName() const override { return u"frmMapWizard"; }

  /// The rule text for the attribute in that slot, or "" when the user cancels.
  Text DoWizard(const LinkSettings& settings, std::size_t selected_doors_attribute, bool combine);

  Label lblPrompt{this, u"lblPrompt"};
  ListBox lstExtra{this, u"lstExtra"};
  Label lblSep{this, u"lblSep"};
  TextBox txtSep{this, u"txtSep"};
  ListBox lstTarget{this, u"lstTarget"};
  Button cmdBack{this, u"cmdBack"};
  Button cmdNext{this, u"cmdNext"};
  Button cmdCancel{this, u"cmdCancel"};
  Button cmdHelp{this, u"cmdHelp"};

 private:
  enum Page { kSecondAttribute = 1, kSeparator = 2, kTarget = 3 };

  void Form_Load() override;
  void Form_CloseBox() override { cmdCancel_Click(); }
  void ShowPage(int page);
  void ShowSecondAttributes();
  void ShowTargets();
  void UpdateButtons();
  void cmdNext_Click();
  void cmdCancel_Click();

  Desktop& desktop_;
  const LinkSettings* settings_ = nullptr;
  Text attribute_;
  bool combine_ = false;
  int page_ = kTarget;
  Text result_;
};

}  // namespace kestrune
