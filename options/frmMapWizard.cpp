#include "options/frmMapWizard.h"

#include <algorithm>

#include "common/Utilities.h"

namespace kestrune {

namespace {

/// A value that shows what a rule does: the well-known ones of an object, else the attribute's own name.
Text ExampleOf(const Text& attribute) {
  if (attribute == u"Object Number") return u"2.1";
  if (attribute == u"Object Heading") return u"Scope";
  return attribute;
}

/// Selects the line, or the first one where there is no such line.
void SelectLine(ListBox& list, const Text& line) {
  const auto found = std::find(list.Items().begin(), list.Items().end(), line);
  list.SetListIndex(found == list.Items().end() ? 0 : static_cast<int>(found - list.Items().begin()));
}

}  // namespace

frmMapWizard::frmMapWizard(Desktop& desktop) : desktop_(desktop) {
  lstExtra.DblClick = [this] { cmdNext_Click(); };
  txtSep.Change = [this] { ShowPreview(); };
  lstTarget.Click = [this] { UpdateButtons(); };
  lstTarget.DblClick = [this] { cmdNext_Click(); };
  cmdNext.Click = [this] { cmdNext_Click(); };
  cmdBack.Click = [this] { ShowPage(page_ - 1); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdHelp.Click = [this] { desktop_.SendHelpKey(*this); };
}

Text frmMapWizard::DoWizard(const LinkSettings& settings, std::size_t selected_doors_attribute, bool combine,
                            std::vector<Text> others) {
  settings_ = &settings;
  attribute_ = settings.GetAttributeName(selected_doors_attribute);
  others_ = std::move(others);
  combine_ = combine;
  HelpContextID = combine ? 6140 : 6040;
  return AskFrom(combine ? kSecondAttribute : kTarget);
}

Text frmMapWizard::AskFrom(Page page) {
  page_ = page;
  result_.clear();
  desktop_.ShowModal(*this);
  return result_;
}

MappingRule frmMapWizard::Rule() const {
  return {attribute_, lstExtra.SelectedText(), txtSep.Value(), lstTarget.SelectedText()};
}

void frmMapWizard::Form_Load() {
  SetCaption(LoadResText(text::kWizardCaption));
  lblSep.SetCaption(LoadResText(text::kSeparator));
  cmdBack.SetCaption(LoadResText(text::kBack));
  cmdCancel.SetCaption(LoadResText(text::kCancel));
  cmdHelp.SetCaption(LoadResText(text::kHelp));
  ApplyStandardFont(*this);
  ShowPage(page_);
}

void frmMapWizard::ShowPage(int page) {
  page_ = page;
  lstExtra.SetVisible(page == kSecondAttribute);
  lblSep.SetVisible(page == kSeparator);
  txtSep.SetVisible(page == kSeparator);
  lblPreview.SetVisible(page == kSeparator);
  lstTarget.SetVisible(page == kTarget);
  switch (page) {
    case kSecondAttribute:
      ShowSecondAttributes();
      lstExtra.SetFocus();
      break;
    case kSeparator:
      lblPrompt.SetCaption(LoadResText(text::kWizardSeparatorPrompt));
      ShowPreview();
      txtSep.SetFocus();
      break;
    case kTarget:
      ShowTargets();
      lstTarget.SetFocus();
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
  SelectLine(lstExtra, others_.size() == 1 ? others_.front() : Text());
}

void frmMapWizard::ShowPreview() {
  const Text joined = ExampleOf(attribute_) + txtSep.Value() + u" " + ExampleOf(lstExtra.SelectedText());
  lblPreview.SetCaption(LoadResText(text::kSeparatorExample) + u" " + joined);
}

void frmMapWizard::ShowTargets() {
  const Text chosen = lstTarget.SelectedText();
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
  SelectLine(lstTarget, chosen);
}

void frmMapWizard::UpdateButtons() {
  cmdBack.SetEnabled(combine_ && page_ != kSecondAttribute);
  cmdNext.SetEnabled(page_ != kTarget || lstTarget.ListIndex() >= 0);
}

void frmMapWizard::cmdNext_Click() {
  if (page_ != kTarget) return ShowPage(page_ + 1);
  const MappingRule rule = Rule();
  result_ = RuleText(rule);
  if (!combine_ && rule.Target == target::kTaggedValue) {
    for (const Text& other : others_)
      if (other != kObjectIdentifier) result_.append(kCrLf).append(RuleText({other, u"", u"", rule.Target}));
  }
  Close();
}

void frmMapWizard::cmdCancel_Click() {
  result_.clear();
  Close();
}

}  // namespace kestrune
