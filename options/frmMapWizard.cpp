#include "options/frmMapWizard.h"

#include "common/Utilities.h"

namespace kestrune {

frmMapWizard::frmMapWizard(Desktop& desktop) : desktop_(desktop) {
  lstExtra.DblClick = [this] { cmdNext_Click(); };
  lstTarget.Click = [this] { UpdateButtons(); };
  lstTarget.DblClick = [this] { cmdNext_Click(); };
  cmdNext.Click = [this] { cmdNext_Click(); };
  cmdBack.Click = [this] { ShowPage(page_ - 1); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdHelp.Click = [this] { desktop_.SendHelpKey(*this); };
}

Text frmMapWizard::DoWizard(const LinkSettings& settings, std::size_t selected_doors_attribute,
                            bool combine) {
  settings_ = &settings;
  attribute_ = settings.GetAttributeName(selected_doors_attribute);
  combine_ = combine;
  HelpContextID = combine ? 6140 : 6040;
  desktop_.ShowModal(*this);
  return result_;
}

void frmMapWizard::Form_Load() {
  SetCaption(LoadResText(text::kWizardCaption));
  lblSep.SetCaption(LoadResText(text::kSeparator));
  cmdBack.SetCaption(LoadResText(text::kBack));
  cmdCancel.SetCaption(LoadResText(text::kCancel));
  cmdHelp.SetCaption(LoadResText(text::kHelp));
  ApplyStandardFont(*this);
  ShowPage(combine_ ? kSecondAttribute : kTarget);
}

void frmMapWizard::ShowPage(int page) {
  page_ = page;
  lstExtra.SetVisible(page == kSecondAttribute);
  lblSep.SetVisible(page == kSeparator);
  txtSep.SetVisible(page == kSeparator);
  lstTarget.SetVisible(page == kTarget);
  switch (page) {
    case kSecondAttribute:
      ShowSecondAttributes();
      break;
    case kSeparator:
      lblPrompt.SetCaption(LoadResText(text::kWizardSeparatorPrompt));
      txtSep.SetFocus();
      break;
    case kTarget:
      ShowTargets();
      break;
  }
  cmdNext.SetCaption(LoadResText(page == kTarget ? text::kFinish : text::kNext));
  UpdateButtons();
}

void frmMapWizard::ShowSecondAttributes() {
  lblPrompt.SetCaption(FormatResText(text::kWizardExtraPrompt, {attribute_}));
  if (!lstExtra.Items().empty()) return;
  for (const Text& unused : settings_->GetUnusedDOORSAttributes())
    if (unused != attribute_) lstExtra.AddItem(unused);
  lstExtra.SetListIndex(0);
}

void frmMapWizard::ShowTargets() {
  lstTarget.Clear();
  if (attribute_ == kObjectIdentifier) {
    const bool alone = lstExtra.SelectedText().empty();
    const Text subject = LoadResText(alone ? text::kThisAttribute : text::kCombinedAttributes);
    lblPrompt.SetCaption(FormatResText(text::kWizardIdentifierPrompt, {attribute_, subject}));
  } else {
    lblPrompt.SetCaption(FormatResText(text::kWizardTargetPrompt, {attribute_}));
    lstTarget.AddItem(Text(target::kTaggedValue));
  }
  for (const Text& field : settings_->GetUnusedOrimFields()) lstTarget.AddItem(field);
  lstTarget.SetListIndex(0);
}

void frmMapWizard::UpdateButtons() {
  cmdBack.SetEnabled(combine_ && page_ != kSecondAttribute);
  cmdNext.SetEnabled(page_ != kTarget || lstTarget.ListIndex() >= 0);
}

void frmMapWizard::cmdNext_Click() {
  if (page_ != kTarget) return ShowPage(page_ + 1);
  result_ = RuleText({attribute_, lstExtra.SelectedText(), txtSep.Value(), lstTarget.SelectedText()});
  Close();
}

void frmMapWizard::cmdCancel_Click() {
  result_.clear();
  Close();
}

}  // namespace kestrune
