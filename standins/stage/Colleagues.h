// What other people do in DOORS while somebody works with the add-in.
#pragma once

#include "standins/doors-database/DoorsDatabase.h"
#include "standins/doors-database/DoorsWindows.h"

namespace kestrune::standins {

/// Failures are CommandErrors or AutomationErrors. May be called from any thread.
class Colleagues {
 public:
  virtual ~Colleagues() = default;
  /// Starts DOORS, logs in or ends it; returns when its windows show it.
  virtual void SetPhase(DoorsPhase state) = 0;
  /// Closes all modules and brings a ReqIF file into a folder of DOORS.
  virtual void Load(const Text& file, const Text& folder) = 0;
  /// Saves a view of a module that shows the objects whose attribute has this value.
  virtual void AddView(const Text& module, const Text& name, const Text& attribute, const Text& value) = 0;
};

/// AddView on a database that the caller has open.
void AddViewTo(DoorsDatabase& database, const Text& module, const Text& name, const Text& attribute,
               const Text& value);

}  // namespace kestrune::standins
