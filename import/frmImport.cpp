#include "import/frmImport.h"

#include <algorithm>
#include <unordered_set>

#include "common/LinkFile.h"
#include "common/Utilities.h"
#include "documents/OutputTab.h"
#include "import/AddImportFields.h"
#include "options/frmOptions.h"
#include "platform/Files.h"

namespace kestrune {

namespace {

constexpr int kBadExportHelp = 6740;
constexpr TextView kViewErrorPrefix = u"View '";
constexpr std::uint64_t kLongPhaseMs = 1000;  // a shorter one needs no count
constexpr std::uint64_t kSharePauseMs = 100;

Text Number(std::size_t number) {
  return ToText(static_cast<long long>(number));
}

[[noreturn]] void ThrowRefused(Text description) {
  throw AutomationError(error::kRefusedByDoors, u"frmImport", std::move(description));
}

}  // namespace

frmImport::frmImport(Doors& doors) : doors_(doors), desktop_(doors.platform().desktop) {
  cmdClose.Click = [this] { Close(); };
  cmdHelp.Click = [this] { desktop_.SendHelpKey(*this); };
  Timer1.Tick = [this] { Timer1_Tick(); };
  List1.Copy = mnuLinesCopy.Click = [this] { CopyLines(); };
  List1.ContextMenu = [this] { mnuLines.PopUp(List1); };
  mnuLinesSelectAll.Click = [this] { List1.SelectAll(); };
}

void frmImport::Transfer(const orim::Repository& Repos, std::int32_t Direction) {
  repository_ = Repos;
  direction_ = Direction;
  desktop_.ShowModal(*this);
}

void frmImport::Form_Load() {
  Label1.SetCaption(LoadResText(text::kDetails));
  cmdClose.SetCaption(LoadResText(text::kClose));
  cmdHelp.SetCaption(LoadResText(text::kHelp));
  mnuLinesCopy.SetCaption(LoadResText(text::kMenuCopy));
  mnuLinesSelectAll.SetCaption(LoadResText(text::kMenuSelectAll));
  SetCaption(PlainCaption());
  HelpContextID = 6340;
  ApplyStandardFont(*this);
  cmdClose.SetEnabled(false);
  Timer1.Interval = 100;
}

Text frmImport::PlainCaption() const {
  return LoadResText(direction_ == kExport ? text::kExportProgress : text::kImportProgress);
}

void frmImport::Form_CloseBox() {
  if (cmdClose.Enabled()) Close();
}

void frmImport::CopyLines() {
  Text lines;
  for (const std::size_t line : List1.SelectedLines()) lines.append(List1.Items()[line]).append(kCrLf);
  if (!lines.empty()) desktop_.SetClipboardText(lines);
}

// The window is painted before DOORS is contacted: the
// work starts with the first tick, and there is no second.
void frmImport::Timer1_Tick() {
  Timer1.SetEnabled(false);
  try {
    RunTransfer();
  } catch (const AutomationError& failure) {
    ReportFailure(failure);
    cmdClose.SetEnabled(true);
  }
}

void frmImport::RunTransfer() {
  Progress(LoadResText(text::kConnecting));
  if (!doors_.EnsureDoors()) return Close();
  const orim::Package package = repository_.SelectedPackage();
  const Text module_path = package ? GetLinkModulePath(doors_.platform(), package.PackageGuid()) : Text();
  if (module_path.empty()) {
    ShowMessage(desktop_, LoadResText(text::kModulePathNotSet), Icon::kStop);
    return Close();
  }
  if (!LoadOptions(package, module_path)) return Close();
  ExportModule(module_path);
  LoadDocuments();
  Progress(LoadResText(text::kComparing));
  if (direction_ != kImport)
    CompareForExport(doors_doc_->GetData(), *orim_doc_);
  else
    Import(package);
}

bool frmImport::LoadOptions(const orim::Package& package, const Text& module_path) {
  options_ = std::make_unique<Options>(doors_);
  if (!options_->EnsureOK(package, module_path, OptionsDialog(doors_))) return false;
  // Without a rule that cannot be read, the import would miss its values and the record the rule.
  if (!options_->Complaints.empty())
    throw AutomationError(error::kUnreadableRecord, u"Options.Load", options_->Complaints);
  doors_doc_ = std::make_unique<DoorsDoc>();
  orim_doc_ = std::make_unique<OrimDoc>(repository_, package);
  AddImportFields(*options_, *orim_doc_, *doors_doc_);
  return true;
}

void frmImport::ExportModule(const Text& module_path) {
  Progress(LoadResText(text::kCheckingModule));
  const Text parameters = ExportParameters(module_path, ExportScope::kObjects, options_->RestrictToView);
  const WindowHandle foreground = desktop_.Foreground();
  const Text answer = doors_.RunScript(dxl_script::kExportModule, parameters);
  // A module that is displayed for its view brings DOORS to the front.
  if (desktop_.Foreground() != foreground) desktop_.Minimize(desktop_.Foreground());
  RequireFile(answer);
  export_path_ = answer;
}

void frmImport::RequireFile(const Text& answer) const {
  if (answer.empty()) ThrowRefused(LoadResText(text::kInvalidResponse));
  auto description = ScriptError(answer);
  if (!description) return;
  if (description->starts_with(kViewErrorPrefix))
    *description += u"\r\n\r\n" + LoadResText(text::kViewAdvice);
  ThrowRefused(std::move(*description));
}

void frmImport::LoadDocuments() {
  doors_doc_->Load(export_path_, *options_, doors_.platform(), repository_);
  if (direction_ == kImport) options_->Save();
  DeleteExport();
  desktop_.PumpMessages();
  Progress(LoadResText(text::kCheckingPackage));
  orim_doc_->Load();
}

// The file is DOORS' and has been read: that it cannot be deleted is no reason not to import it.
void frmImport::DeleteExport() {
  std::error_code failure;
  std::filesystem::remove(ToPath(export_path_), failure);
  if (failure) OutputTab(repository_).Write(FormatResText(text::kExportNotDeleted, {export_path_}));
}

void frmImport::CompareForExport(const DataTable& module, const OrimDoc& package) {
  std::unordered_set<TextView> in_module;
  for (std::size_t row = 1; row <= module.UpperRow(); ++row)
    in_module.insert(module.At(row, column::kIdentifier).AsText());
  const DataTable& elements = package.GetData();
  for (std::size_t row = 1; row <= elements.UpperRow(); ++row) {
    if (in_module.contains(elements.At(row, column::kIdentifier).AsText())) continue;
    const auto element = repository_.ElementByID(elements.At(row, column::kKey).ToInt());
    Progress(FormatResText(text::kItemNew, {element.Name()}));
  }
  Finish();
}

void frmImport::Import(const orim::Package& package) {
  WarnOfRules();
  result_ = Synchronisation(repository_, package, doors_doc_->GetData(), *orim_doc_, *this).Run();
  SetCaption(PlainCaption());
  ShowShortfalls();
  OfferExclusion();
  Progress(LoadResText(text::kUpdatingUi));
  repository_.RefreshModelView(package.PackageID());
  ShowCounts();
  Finish();
  if (result_->Archived > 0) ShowSummary(text::kArchivedSummary, result_->Archived);
  if (result_->Restored > 0) ShowSummary(text::kRestoredSummary, result_->Restored);
}

void frmImport::WarnOfRules() {
  for (const Text& lost : options_->LostRules) Warn(lost);
  for (const UnusedRule& unused : options_->UnusedRules()) Warn(unused.Why);
}

void frmImport::ShowShortfalls() {
  if (result_->NotMade > 0) Warn(FormatResText(text::kObjectsNotMade, {Number(result_->NotMade)}));
  for (const FailedField& field : result_->FailedFields) {
    const Text& name = orim_doc_->Column(field.Column).Name;
    if (field.Skipped > 0) Warn(FormatResText(text::kFieldSkipped, {name, Number(field.Skipped)}));
    if (field.Column < column::kFirstMapped) Warn(FormatResText(text::kNotExcludable, {name}));
  }
}

void frmImport::Warn(const Text& warning) {
  Progress(FormatResText(text::kWarningLine, {warning}));
}

void frmImport::OfferExclusion() {
  Text names;
  for (const FailedField& field : result_->FailedFields)
    if (field.Column >= column::kFirstMapped)
      names += (names.empty() ? u"" : u", ") + orim_doc_->Column(field.Column).Name;
  if (names.empty()) return;
  if (!AskYesNo(desktop_, FormatResText(text::kExcludeQuestion, {names}), Icon::kExclamation)) return;
  for (const FailedField& field : result_->FailedFields)
    if (field.Column >= column::kFirstMapped) ExcludeColumn(orim_doc_->Column(field.Column));
  options_->Save();
}

void frmImport::ExcludeColumn(const ImportColumn& column) {
  std::vector<Text> attributes;
  for (const MappingRule& rule : options_->UserRules()) {
    if (rule.Target.empty()) continue;
    const ImportColumn other = ColumnOf(rule);
    if (other.Place == column.Place && other.Name == column.Name) attributes.push_back(rule.Attribute);
  }
  for (const Text& attribute : attributes) options_->RemoveAttribute(attribute);
}

void frmImport::ShowCounts() {
  Progress(FormatResText(
      text::kImportCounts,
      {Number(result_->New), Number(result_->Changed), Number(result_->Moved), Number(result_->Archived),
       Number(result_->Restored), Number(result_->Unchanged), Number(result_->Failed)}));
}

void frmImport::Finish() {
  cmdClose.SetEnabled(true);
  Progress(LoadResText(text::kImportComplete));
}

void frmImport::ShowSummary(int line_id, std::size_t count) {
  ShowMessage(desktop_, FormatResText(line_id, {Number(count), LoadResText(text::kTrashCan)}),
              Icon::kInformation);
}

void frmImport::ReportFailure(const AutomationError& failure) {
  if (error::IsConnectionLost(failure.Number)) return ShowFailure(desktop_, failure);
  const Text composed =
      failure.Description + u"\r\n(Error Code: " + ToText(static_cast<std::int32_t>(failure.Number)) + u")";
  if (failure.Number == DoorsDoc::kBadExport) return ReportBadExport(composed);
  ShowMessage(desktop_, composed, Icon::kExclamation);
}

void frmImport::ReportBadExport(const Text& composed) {
  desktop_.Show({.Body = FormatResText(text::kUnexpectedData, {composed, LoadResText(text::kSupportAddress)}),
                 .Title = LoadResText(text::kTitle),
                 .Icon = Icon::kStop,
                 .HelpContext = kBadExportHelp});
  if (AskYesNo(desktop_, LoadResText(text::kBrowseToFile), Icon::kQuestion))
    desktop_.StartCommand(u"Explorer.exe ,/select ,\"" + export_path_ + u"\"");
}

void frmImport::Progress(const Text& msg) {
  ShowLines(lines_.Add(msg));
}

void frmImport::ProgressModify(const Text& ID, const Text& Modification) {
  ShowLines(lines_.AddChange(ID, Modification));
}

void frmImport::ProgressShare(std::size_t done, std::size_t total) {
  const std::uint64_t now = desktop_.Milliseconds();
  if (done == 0) {
    phase_began_ = now;
    SetCaption(PlainCaption());
  }
  if (now < phase_began_ + kLongPhaseMs || now < share_shown_ + kSharePauseMs) return;
  share_shown_ = now;
  SetCaption(FormatResText(text::kImportShare, {PlainCaption(), Number(100 * done / total)}));
  desktop_.PumpMessages();
}

void frmImport::ShowLines(std::size_t first_changed) {
  const auto& lines = lines_.All();
  if (first_changed < List1.Items().size()) List1.SetItem(first_changed, lines[first_changed]);
  for (std::size_t next = List1.Items().size(); next < lines.size(); ++next) List1.AddItem(lines[next]);
  List1.SetListIndex(static_cast<int>(lines.size()) - 1);
  List1.Repaint();
}

}  // namespace kestrune
