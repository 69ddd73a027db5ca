#include "options/frmOptions.h"

#include <algorithm>

#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "options/frmMapWizard.h"
#include "platform/Files.h"

namespace kestrune {

namespace {

class WaitCursor {
 public:
  explicit WaitCursor(Desktop& desktop) : desktop_(desktop) { desktop_.SetWaitCursor(true); }
  ~WaitCursor() { desktop_.SetWaitCursor(false); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  Desktop& desktop_;
};

/// Throws when a rule that maps the attribute would be read as one of other attributes.
void RequireMappable(const Text& attribute) {
  if (ReadsBack({.Attribute = attribute, .Target = Text(target::kTaggedValue)})) return;
  throw AutomationError(error::kUnmappableAttribute, u"frmOptions",
                        FormatResText(text::kUnmappable, {attribute}));
}

}  // namespace

Options::Dialog OptionsDialog(Doors& doors) {
  return [&doors](Options& options) { return frmOptions(doors).Edit(options) != frmOptions::kCancelled; };
}

frmOptions::frmOptions(Doors& doors) : doors_(doors) {
  cmbViews.DropDown = Guarded([this] { cmbViews_DropDown(); });
  lvMappings.SelectionChange = [this] { UpdateButtons(); };
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
  if (!options.Complaints.empty()) ShowMessage(desktop, options.Complaints, Icon::kExclamation);
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

void frmOptions::Refill(const Text& attribute) {
  options_->FillListBox(lvMappings);
  if (const std::size_t slot = options_->FindAttribute(attribute))
    lvMappings.SelectRow(slot - LinkSettings::kFirstUserSlot);
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

Text frmOptions::SelectedAttribute() const {
  const auto slots = SelectedSlots();
  return slots.empty() ? Text() : options_->GetAttributeName(slots.front());
}

void frmOptions::cmbViews_DropDown() {
  if (!doors_.EnsureDoors()) return;
  const Text answer = doors_.RunScript(dxl_script::kListViews, lblModulePath.Caption());
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
  const auto slots = SelectedSlots();
  const Text attribute = options_->GetAttributeName(slots.front());
  RequireMappable(attribute);
  const Text result = frmMapWizard(doors_.platform().desktop).DoWizard(*options_, slots.front(), combine);
  if (result.empty()) return;
  for (const Text& line : Split(result, kCrLf)) options_->AddMapping(line);
  options_->Sort();
  Refill(attribute);
}

void frmOptions::cmdRemove_Click() {
  std::vector<Text> attributes;
  for (const std::size_t slot : SelectedSlots()) attributes.push_back(options_->GetAttributeName(slot));
  for (const Text& attribute : attributes) options_->UnmapIndex(options_->FindAttribute(attribute));
  Refill(attributes.front());
  lvMappings.SetFocus();
}

void frmOptions::ApplyTemplate(TextView new_template) {
  const Text attribute = SelectedAttribute();
  options_->SetTemplate(new_template);
  Refill(attribute);
}

void frmOptions::cmdReloadAttribs_Click() {
  const WaitCursor wait(doors_.platform().desktop);
  const Text attribute = SelectedAttribute();
  const Text module_path = GetLinkModulePath(doors_.platform(), options_->Package.PackageGuid());
  if (options_->RefreshDoorsAttributes(module_path)) Refill(attribute);
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
