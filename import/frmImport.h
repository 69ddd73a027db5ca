// The window through which every transfer runs: it drives the transfer and shows what it does, line by line.
#pragma once

#include "documents/DoorsDoc.h"
#include "documents/ImportProgress.h"
#include "doors/Doors.h"
#include "import/ImportLines.h"
#include "import/Synchronisation.h"
#include "options/Options.h"

namespace kestrune {

/// One window serves one transfer. It cannot be closed while the transfer runs.
class frmImport : public Form, public ImportProgress {
 public:
  explicit frmImport(Doors& doors);

  TextView ClassName() const override { return u"frmImport"; }

  enum Direction : std::int32_t { kImport = 0, kExport = 1 };

  /// Opens the window and runs the transfer of the package selected in the host: kImport imports, any other
  /// direction compares for an export and changes nothing. Returns when the window has been closed.
  void Transfer(const orim::Repository& Repos, std::int32_t Direction);

  void Progress(const Text& msg) override;
  void ProgressModify(const Text& ID, const Text& Modification) override;
  void ProgressShare(std::size_t done, std::size_t total) override;

  /// What an import did that has come to its end.
  const std::optional<SynchronisationResult>& Result() const { return result_; }

  const ImportLines& Lines() const { return lines_; }

  Label Label1{this, u"Label1"};
  ListBox List1{this, u"List1"};
  Button cmdClose{this, u"cmdClose"};
  Button cmdHelp{this, u"cmdHelp"};
  Timer Timer1{this, u"Timer1"};
  MenuItem mnuLinesCopy{this, u"mnuLinesCopy"};
  MenuItem mnuLinesSelectAll{this, u"mnuLinesSelectAll"};
  Menu mnuLines{this, u"mnuLines", {&mnuLinesCopy, &mnuLinesSelectAll}};

 private:
  void Form_Load() override;
  void Form_CloseBox() override;
  void Timer1_Tick();

  void CopyLines();
  void RunTransfer();
  bool LoadOptions(const orim::Package& package, const Text& module_path);
  void ExportModule(const Text& module_path);
  void RequireFile(const Text& answer) const;
  void LoadDocuments();
  void CompareForExport(const DataTable& module, const OrimDoc& package);
  void Import(const orim::Package& package);
  void DeleteExport();
  void WarnOfRules();
  void ShowShortfalls();
  void OfferExclusion();
  void ExcludeColumn(const ImportColumn& column);
  void ShowCounts();
  void Warn(const Text& warning);
  Text PlainCaption() const;
  void Finish();
  void ShowSummary(int line_id, std::size_t count);
  void ShowLines(std::size_t first_changed);
  void ReportFailure(const AutomationError& failure);
  void ReportBadExport(const Text& composed);

  Doors& doors_;
  Desktop& desktop_;
  orim::Repository repository_;
  std::int32_t direction_ = kImport;
  ImportLines lines_;
  Text export_path_;
  std::uint64_t phase_began_ = 0, share_shown_ = 0;  // as Desktop::Milliseconds counts
  std::optional<SynchronisationResult> result_;
  std::unique_ptr<Options> options_;
  std::unique_ptr<DoorsDoc> doors_doc_;
  std::unique_ptr<OrimDoc> orim_doc_;
};

}  // namespace kestrune
