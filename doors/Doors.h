// The one connection to DOORS that the process holds, and how a script is run over it.
#pragma once

#include <optional>

#include "platform/Platform.h"

namespace kestrune {

class Doors {
 public:
  explicit Doors(const Platform& platform) : platform_(platform) {}

  /// DOORS' automation object "Doors.Application"; nothing until EnsureDoors has succeeded.
  Object DoorsApp;

  /// Gets DOORS' automation object afresh, waiting with the user until DOORS is ready;
  /// false when the user gives up.
  bool EnsureDoors();

  /// Runs the DXL script of that id and returns its answer. `parameters` are put into DOORS' one result slot
  /// first; a script that takes none is given none.
  Text RunScript(int id, const Text& parameters) const;
  Text RunScript(int id) const;
  /// The same, with the wait cursor until DOORS has answered.
  Text RunScriptWaiting(int id, const Text& parameters) const;

  const Platform& platform() const { return platform_; }

 private:
  const Platform& platform_;
};

/// The fields of a script's parameters as one text, "~" between them. Throws AutomationError
/// for a field that holds one.
Text JoinFields(const std::vector<Text>& fields);

/// The parameters of the export script. An empty view means the whole module.
enum class ExportScope { kObjects, kAttributes };
Text ExportParameters(const Text& module_path, ExportScope scope, const Text& view = {});

/// What a script's answer says went wrong; nothing for an answer that is no error.
std::optional<Text> ScriptError(TextView answer);

/// Tells the user of a failure; a lost connection to DOORS has a text of its own.
void ShowFailure(Desktop& desktop, const AutomationError& failure);

}  // namespace kestrune
