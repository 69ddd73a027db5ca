#include "options/frmOptions.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "options/frmMapWizard.h"
#include "platform/Files.h"

namespace kestrune {

namespace {

/// Whether a rule that maps the attribute is read as just that.
bool IsMappable(const Text& attribute) {
  return ReadsBack({.Attribute = attribute, .Target = Text(target::kTaggedValue)});
}

/// The same for a rule that combines it with another one. In a name a bracket may stand only if no other
/// follows it.
bool IsCombinable(const Text& attribute) {
  return ReadsBack({.Attribute = attribute, .CombinedAttribute = u"B", .Target = u"Name"});
}

void RequireConfigurable(const Text& attribute, bool combine) {
  if (combine ? IsCombinable(attribute) : IsMappable(attribute)) return;
  const int why = IsMappable(attribute) ? text::kUncombinable : text::kUnmappable;
  throw AutomationError(error::kUnmappableAttribute, u"frmOptions", FormatResText(why, {attribute}));
}

}  // namespace

Options::Dialog OptionsDialog(Doors& doors) {
  return [&doors](Options& options) { return frmOptions(doors).Edit(options) != frmOptions::kCancelled; };
}

frmOptions::frmOptions(Doors& doors) : doors_(doors) {
  cmbViews.DropDown = Guarded([this] { cmbViews_DropDown(); });
  lvMappings.SelectionChange = [this] { UpdateButtons(); };
  lvMappings.Delete = [this] {
    if (cmdRemove.Enabled()) cmdRemove.Click();
  };
  lvMappings.DblClick = [this] {
    if (cmdMap.Enabled()) cmdMap.Click();
  };
  cmdMap.Click = Guarded([this] { Configure(false); });
  cmdCombine.Click = Guarded([this] { Configure(true); });
  cmdRemove.Click = [this] { cmdRemove_Click(); };
  cmdMappings.Click = [this] { mnuMappings.PopUp(cmdMappings); };
  mnuMappingsCopy.Click =
      Guarded([this] { doors_.platform().desktop.SetClipboardText(options_->GetTemplate()); });
  mnuMappingsPaste.Click = Guarded([this] { ApplyTemplate(doors_.platform().desktop.ClipboardText()); });
  mnuMappingsDefault.Click = [this] { ApplyTemplate(LinkSettings::DefaultTemplate()); };
  cmdReloadAttribs.Click = Guarded([this] { cmdReloadAttribs_Click(); });
  cmdSaveAndImport.Click = [this] { Accept(kSaveAndImport); };
  cmdOK.Click = [this] { Accept(kAccepted); };
  cmdCancel.Click = [this] { CloseWith(kCancelled); };
  cmdHelp.Click = [this] { doors_.platform().desktop.SendHelpKey(*this); };
}

Event frmOptions::Guarded(Event handler) {
  return [this, handler = std::move(handler)] {
    try {
      handler();
    } catch (const AutomationError& failure) {
      ShowFailure(doors_.platform().desktop, failure);
    }
  };
}

frmOptions::CloseCode frmOptions::ShowOptions(const orim::Repository&,
                                              const orim::Package& selected_package) {
  Options options(doors_);
  if (!options.Load(selected_package)) options.LoadDefault(selected_package);
  return Edit(options);
}

frmOptions::CloseCode frmOptions::Edit(Options& options) {
  options_ = &options;
  Desktop& desktop = doors_.platform().desktop;
  if (!options.Complaints.empty())
    ShowMessage(desktop, FormatResText(text::kUnreadableLines, {options.Complaints}), Icon::kExclamation);
  desktop.ShowModal(*this);
  if (close_code_ != kCancelled) options.Save();
  return close_code_;
}

void frmOptions::Form_Load() {
  SetCaptions();
  HelpContextID = 3400;
  ApplyStandardFont(*this);
  is_locked_ = options_->Package.Element().Locked();
  const Text name = options_->Package.Name();
  lblPackageName.SetCaption(is_locked_ ? name + u" " + LoadResText(text::kLocked) : name);
  const Text view =
      options_->RestrictToView.empty() ? LoadResText(text::kStandardView) : options_->RestrictToView;
  cmbViews.SetItems({view});
  cmbViews.SetValue(view);
  lblModulePath.SetCaption(ModulePathText());
  Refill({});
  lvMappings.SetFocus();
}

void frmOptions::SetCaptions() {
  SetCaption(LoadResText(text::kOptionsCaption));
  const std::pair<Control&, int> captions[] = {
      {lblPackage, text::kOrimPackage},
      {lblModule, text::kDoorsModule},
      {lblFilter, text::kFilterByView},
      {lblRules, text::kImportRules},
      {cmdMap, text::kMap},
      {cmdCombine, text::kCombine},
      {cmdRemove, text::kRemove},
      {cmdMappings, text::kMappings},
      {mnuMappings, text::kMappingsMenu},
      {mnuMappingsCopy, text::kMenuCopy},
      {mnuMappingsPaste, text::kMenuPaste},
      {mnuMappingsDefault, text::kMenuDefault},
      {cmdReloadAttribs, text::kRefreshAttributes},
      {cmdSaveAndImport, text::kSaveAndImport},
      {cmdOK, text::kOk},
      {cmdCancel, text::kCancel},
      {cmdHelp, text::kHelp},
  };
  for (const auto& [control, id] : captions) control.SetCaption(LoadResText(id));
  // Whoever shows the list measures texts: the second column is as wide as four blanks and its header, or as
  // its widest target needs; the first has the rest.
  lvMappings.SetColumns({LoadResText(text::kDoorsColumn), LoadResText(text::kOrimColumn)});
}

Text frmOptions::ModulePathText() const {
  const Platform& platform = doors_.platform();
  const Text guid = options_->Package.PackageGuid();
  if (!IsFile(GetLinkFilePath(platform, guid))) return LoadResText(text::kNoConnection);
  const Text path = GetLinkModulePath(platform, guid);
  return path.empty() ? LoadResText(text::kModulePathNotSet) : path;
}

void frmOptions::Refill(const std::vector<Text>& attributes) {
  std::vector<std::size_t> slots;
  for (const Text& attribute : attributes)
    if (const std::size_t slot = options_->FindAttribute(attribute)) slots.push_back(slot);
  options_->FillListBox(lvMappings, std::move(slots));
  UpdateButtons();
}

void frmOptions::UpdateButtons() {
  for (Button* button : {&cmdOK, &cmdMappings, &cmdSaveAndImport, &cmdReloadAttribs})
    button->SetEnabled(!is_locked_);
  const auto slots = SelectedSlots();
  const auto is_mapped = [this](std::size_t slot) { return !options_->GetOrimTarget(slot).empty(); };
  const bool may_change = !is_locked_ && !slots.empty();
  const bool all_mapped = std::all_of(slots.begin(), slots.end(), is_mapped);
  const bool all_unmapped = std::none_of(slots.begin(), slots.end(), is_mapped);
  cmdMap.SetEnabled(may_change && all_unmapped);
  cmdCombine.SetEnabled(may_change && all_unmapped && options_->GetUnusedDOORSAttributes().size() >= 2);
  cmdRemove.SetEnabled(may_change && all_mapped);
}

std::vector<std::size_t> frmOptions::SelectedSlots() const {
  std::vector<std::size_t> slots = lvMappings.SelectedRows();
  for (std::size_t& slot : slots) slot += LinkSettings::kFirstUserSlot;
  return slots;
}

std::vector<Text> frmOptions::SelectedAttributes() const {
  std::vector<Text> attributes;
  for (const std::size_t slot : SelectedSlots()) attributes.push_back(options_->GetAttributeName(slot));
  return attributes;
}

void frmOptions::cmbViews_DropDown() {
  if (!doors_.EnsureDoors()) return;
  const Text answer = doors_.RunScriptWaiting(dxl_script::kListViews, lblModulePath.Caption());
  if (ScriptError(answer)) return ShowMessage(doors_.platform().desktop, answer, Icon::kExclamation);
  const Text standard_view = LoadResText(text::kStandardView);
  std::vector<Text> views = {standard_view};
  for (const Text& line : Split(answer, u"\n")) {
    const Text view(Trim(line));
    if (!view.empty() && view != standard_view) views.push_back(view);
  }
  cmbViews.SetItems(std::move(views));
}

void frmOptions::Configure(bool combine) {
  const auto attributes = SelectedAttributes();
  RequireConfigurable(attributes.front(), combine);
  const std::vector<Text> others(attributes.begin() + 1, attributes.end());
  const Text answer = AskWizard(attributes.front(), others, combine);
  const std::vector<Text> mapped = AddMappings(answer);
  // What one host field could not take is at hand for the next.
  const bool goes_on = mapped.size() == 1 && !combine && !others.empty();
  if (!mapped.empty()) Refill(goes_on ? others : mapped);
  lvMappings.SetFocus();
  if (mapped.size() > 1) TellUnmappable(others);
}

Text frmOptions::AskWizard(const Text& attribute, const std::vector<Text>& others, bool combine) {
  Desktop& desktop = doors_.platform().desktop;
  std::vector<Text> along;
  std::copy_if(others.begin(), others.end(), std::back_inserter(along), IsMappable);
  frmMapWizard wizard(desktop);
  Text answer = wizard.DoWizard(*options_, options_->FindAttribute(attribute), combine, std::move(along));
  // The answer is as the user typed it. What would read back as another rule goes back to him.
  while (!answer.empty() && !ReadsBack(wizard.Rule())) {
    MappingRule rule = wizard.Rule();
    const Text separator = std::exchange(rule.Separator, u"");
    const bool is_separator = ReadsBack(rule);
    const Text why = is_separator ? FormatResText(text::kUnkeptSeparator, {separator, rule.CombinedAttribute})
                                  : FormatResText(text::kUnmappable, {rule.CombinedAttribute});
    ShowMessage(desktop, why, Icon::kExclamation);
    answer = wizard.AskFrom(is_separator ? frmMapWizard::kSeparator : frmMapWizard::kSecondAttribute);
  }
  return answer;
}

std::vector<Text> frmOptions::AddMappings(const Text& rules) {
  std::vector<Text> mapped;
  for (const Text& line : Split(rules, kCrLf)) {
    const auto rule = ParseRule(line);
    if (!rule) continue;
    options_->AddMapping(line);
    mapped.push_back(rule->Attribute);
  }
  options_->Sort();
  return mapped;
}

void frmOptions::TellUnmappable(const std::vector<Text>& attributes) const {
  Text names;
  for (const Text& attribute : attributes)
    if (!IsMappable(attribute)) names.append(kCrLf).append(attribute);
  if (!names.empty())
    ShowMessage(doors_.platform().desktop, FormatResText(text::kNotMapped, {names}), Icon::kExclamation);
}

void frmOptions::cmdRemove_Click() {
  const auto attributes = SelectedAttributes();
  for (const Text& attribute : attributes) options_->UnmapIndex(options_->FindAttribute(attribute));
  Refill({attributes.front()});
  lvMappings.SetFocus();
}

void frmOptions::ApplyTemplate(TextView new_template) {
  const auto attributes = SelectedAttributes();
  options_->SetTemplate(new_template);
  Refill(attributes);
}

void frmOptions::cmdReloadAttribs_Click() {
  const auto attributes = SelectedAttributes();
  const Text module_path = GetLinkModulePath(doors_.platform(), options_->Package.PackageGuid());
  if (!options_->RefreshDoorsAttributes(module_path)) return;
  Refill(attributes);
  Text losses;
  for (const Text& loss : options_->LostRules) losses.append(kCrLf).append(kCrLf).append(loss);
  if (!losses.empty())
    ShowMessage(doors_.platform().desktop, FormatResText(text::kLostRules, {losses}), Icon::kExclamation);
}

void frmOptions::Accept(CloseCode code) {
  options_->RestrictToView = Trim(cmbViews.Value());
  CloseWith(code);
}

void frmOptions::CloseWith(CloseCode code) {
  close_code_ = code;
  Close();
}

}  // namespace kestrune
