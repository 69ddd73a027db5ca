// The options of one linked package: its settings with the way to the package's stored record and to the
// module's attributes. Made for one use, a dialog or an import, and dropped after it.
#pragma once

#include "doors/Doors.h"
#include "options/ExportAttributes.h"
#include "options/LinkSettings.h"
#include "orim/Repository.h"

namespace kestrune {

/// LoadDefault, Load or EnsureOK comes first. Failures of the host pass through as AutomationError, from
/// every operation that takes or holds the package.
class Options : public LinkSettings {
 public:
  /// Shows the user options that are loaded, and saves them unless he cancels, which is false.
  using Dialog = std::function<bool(Options&)>;

  explicit Options(Doors& doors) : doors_(doors) {}

  orim::Package Package;
  Text Complaints;              // what could not be read of the record, a line each; Save would lose it
  std::vector<Text> LostRules;  // what the last refresh answered of rules that were the user's

  /// The fixed rules and the five default ones; the view restriction stays.
  void LoadDefault(const orim::Package& package);
  /// Reads the record of the package; false, with nothing changed but Package, when it has none. A record
  /// that is not valid is told to the user and replaced by the defaults, to which its rule lines are added. A
  /// rule line that cannot be read is among the Complaints and not among the rules.
  bool Load(const orim::Package& package);
  /// Loads the record of the package, the same as it is stored. Where there is no valid one it makes one of
  /// the defaults and the module's attributes and has the user look at it. An empty module path means the one
  /// of the package's link file. False, with nothing loaded, when there is none after all or the user
  /// cancels.
  bool EnsureOK(const orim::Package& package, Text module_path, const Dialog& dialog);
  /// Sorts the rules and writes the record, unless it is what was read or written last.
  void Save();
  /// Deletes the record of the package, if there is one.
  void Clear(const orim::Package& pkg);

  /// Takes the module's attributes from an export that has been read, as TakeAttributes does. False, with nothing
  /// changed, for one without an attribute list.
  bool RefreshDoorsAttributesFromXML(const ExportAttributes& d, bool reload_defaults = false);
  /// The same, with an export of the attributes that DOORS is asked for. False, after a message, when DOORS
  /// cannot be reached or fails; a lost connection throws AutomationError.
  bool RefreshDoorsAttributes(const Text& module_path, bool reload_defaults = false);

  /// Replaces the mapped rules by those of a template. A text that is none is told to the user and changes
  /// nothing; throws as ParseRule does, with nothing changed.
  void SetTemplate(TextView new_template);

  /// A place to look into a running import from the outside; always empty.
  Text DebugMe() const { return {}; }

 private:
  /// Takes a valid record's text over.
  void Take(const Text& record_text);

  Doors& doors_;
  std::optional<Text> stored_;  // the record as it was read or written last
};

}  // namespace kestrune
