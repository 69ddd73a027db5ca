// Takes an export as it is handed on: its attribute list, then its objects.
#pragma once

#include "documents/DataTable.h"
#include "documents/ImportColumn.h"
#include "options/ExportAttributes.h"

namespace kestrune {

/// Fills the table of a DoorsDoc but for the positions. An "Object" below "DoorsModule/Objects" has a child element for
/// each of its values: "a" and the ID of the attribute.
class ExportReader : public ExportAttributes {
 public:
  /// `columns` are numbered as in the table, and must outlive this.
  explicit ExportReader(const std::vector<ImportColumn>& columns) : columns_(columns) {}

  bool HasObjects() const { return has_objects_; }
  /// Whether the objects came before the list that tells what their values are. The document must be read again then.
  bool IsTheWrongWayRound() const { return !is_resolved_ && has_objects_ && IsThere(); }
  void ReadAgain() { KeepForNextDocument(); }
  DataTable TakeTable() { return std::move(table_); }

  void OnDocument() override;
  bool OnStart(TextView name, const XmlAttributes& attributes) override;
  void OnEnd(TextView content) override;

 private:
  struct Use {  // of one of an object's values
    std::size_t Column;
    bool IsExtra;
  };
  struct Combined {  // two values, before they are put into one cell
    Text First;
    Text Extra;
  };

  void Resolve();
  bool Wants(TextView name);
  void TakeValue(TextView content);
  void EndObject();

  const std::vector<ImportColumn>& columns_;
  std::vector<std::vector<Use>> uses_;  // by ID
  std::vector<Combined> combined_;      // by column
  DataTable table_;
  std::size_t row_ = 0;
  std::size_t id_ = 0;  // of the value that is read
  bool has_objects_ = false;
  bool is_in_objects_ = false;
  bool is_resolved_ = false;
};

}  // namespace kestrune
