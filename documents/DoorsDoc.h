// The module's objects, read from the export file that DOORS wrote.
#pragma once

#include "documents/DataTable.h"
#include "documents/ImportColumn.h"
#include "options/Options.h"

namespace kestrune {

/// Fields are requested first, then the file is loaded once, front to back, then the table is read. The first four requests
/// are the fixed ones, in the order of the columns named in DataTable.h.
///
/// Column 0 of the table is the object's absolute number, column c the c-th request; a cell is empty where
/// the object has no such value. Positions run 10, 20, 30 in file order under each parent.
class DoorsDoc {
 public:
  /// The number of the error for an export that cannot be read.
  static constexpr std::uint32_t kBadExport = error::kBadExport;

  /// Requests the value of the column's attribute, followed by the separator and the extra attribute's value
  /// where that has one.
  void AddField(ImportColumn column) { columns_.push_back(std::move(column)); }

  /// Reads the export file at `path`. A malformed one is read once more without its
  /// control characters, which is told in the output tab "DOORS". The attribute list of
  /// the export is taken over into `options`, and not saved. Throws AutomationError
  /// kBadExport, source "DoorsDoc.Load", when the file is no export or stays malformed.
  void Load(const Text& path, Options& options, const Platform& platform, const orim::Repository& repository);

  const DataTable& GetData() const { return table_; }

 private:
  void NumberSiblings();

  std::vector<ImportColumn> columns_ = std::vector<ImportColumn>(1);  // numbered as in the table
  DataTable table_;
};

}  // namespace kestrune
