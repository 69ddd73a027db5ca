// The host as a Windows program: a window, a model, the add-in as a COM object, and DOORS beside it. A script
// is played on it so:
//
//   const ComThread com;
//   HostProgram host({.model = model, .package = package, .doors = {.database = database}});
//   Stage stage(host.Session(), host.Doors(), host.Screen(), folder_of_the_script, std::cout);
//   const auto commands = stage.Commands();
//   ScreenUser(std::cout, std::cerr).Play(ReadScript(file, commands), commands);
#pragma once

#include "platform/windows/Win32Desktop.h"
#include "standins/stage/HostSession.h"
#include "standins/windows/host/DoorsProcess.h"

namespace kestrune::standins {

/// The host's main window, titled "Orim Studio", in front of all others.
class HostWindow {
 public:
  HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow() { DestroyWindow(window_); }
  HWND Handle() const { return window_; }

 private:
  HWND window_;
};

/// Lives on the thread of the windows, within a ComThread.
class HostProgram {
 public:
  struct Settings {
    Text model;
    Text package;  // by name or path
    DoorsProcess::Settings doors;
  };
  /// Opens the model, selects the package, starts DOORS ready for use, loads the add-in and connects it.
  /// Throws CommandError or AutomationError.
  explicit HostProgram(const Settings& settings);
  HostProgram(const HostProgram&) = delete;
  HostProgram& operator=(const HostProgram&) = delete;
  /// Disconnects the add-in, then ends DOORS.
  ~HostProgram();

  HostSession& Session() { return session_; }
  DoorsProcess& Doors() { return doors_; }
  Desktop& Screen() { return desktop_; }
  HWND Window() const { return window_.Handle(); }

 private:
  HostSession session_;
  HostWindow window_;
  Win32Desktop desktop_;
  DoorsProcess doors_;
};

}  // namespace kestrune::standins
