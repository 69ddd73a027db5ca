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

  enum Page { kSecondAttribute = 1, kSeparator = 2, kTarget = 3 };

  /// The rule text for the attribute in that slot, or "" when the user cancels. The other attributes are
  /// those that the user has selected with it. Into tagged values all of them go likewise, a line each; of a
  /// combination the first is the one that is offered first.
  Text DoWizard(const LinkSettings& settings, std::size_t selected_doors_attribute, bool combine,
                std::vector<Text> others = {});
  /// The same from that page on, with all that the user has chosen already.
  Text AskFrom(Page page);
  /// What the user meant for the attribute, whether or not its text reads back so.
  MappingRule Rule() const;

  Label lblPrompt{this, u"lblPrompt"};
  ListBox lstExtra{this, u"lstExtra"};
  Label lblSep{this, u"lblSep"};
  TextBox txtSep{this, u"txtSep"};
  Label lblPreview{this, u"lblPreview"};
  ListBox lstTarget{this, u"lstTarget"};
  Button cmdBack{this, u"cmdBack"};
  Button cmdNext{this, u"cmdNext"};
  Button cmdCancel{this, u"cmdCancel"};
  Button cmdHelp{this, u"cmdHelp"};

 private:
  void Form_Load() override;
  void Form_CloseBox() override { cmdCancel_Click(); }
  void ShowPage(int page);
  void ShowSecondAttributes();
  void ShowPreview();
  void ShowTargets();
  void UpdateButtons();
  void cmdNext_Click();
  void cmdCancel_Click();

  Desktop& desktop_;
  const LinkSettings* settings_ = nullptr;
  Text attribute_;
  std::vector<Text> others_;
  bool combine_ = false;
  int page_ = kTarget;
  Text result_;
};

}  // namespace kestrune
