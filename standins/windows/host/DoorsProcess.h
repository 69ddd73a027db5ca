// DOORS as a program of its own: starts kestrune-doors, steers it, ends it.
#pragma once

#include <windows.h>

#include "standins/stage/Colleagues.h"

namespace kestrune::standins {

/// Not running until SetState starts it, which ends every other DOORS; ended with this object. Throws
/// CommandError when the program does not do what it is told.
class DoorsProcess : public Colleagues {
 public:
  struct Settings {
    Text database;
    Text program;    // kestrune-doors.exe; "" for the one beside this program
    Text workbench;  // kestrune-workbench, a program below Wine, which alone can Load; "" for none
    Text log;        // what scripts print; "" for none
  };
  /// Registers the program as "Doors.Application" for this machine, with this database. Throws
  /// AutomationError when that is none.
  explicit DoorsProcess(Settings settings);
  DoorsProcess(const DoorsProcess&) = delete;
  DoorsProcess& operator=(const DoorsProcess&) = delete;
  ~DoorsProcess() override;

  void SetPhase(DoorsPhase state) override;
  void Load(const Text& file, const Text& folder) override;
  void AddView(const Text& module, const Text& name, const Text& attribute, const Text& value) override;

  /// See DoorsControl.h; only while it runs.
  void DieAtPerm(int n) const;
  void DamageNextExport() const;
  void CloseModules() const;
  bool IsRunning() const;

 private:
  void Start(DoorsPhase state);
  void Tell(UINT message, WPARAM parameter) const;
  HWND ControlWindow() const;

  Settings settings_;
  HANDLE process_ = nullptr;  // null: not started, or ended by this object
};

}  // namespace kestrune::standins
