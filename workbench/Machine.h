// The machine of one command: the add-in with its two neighbours, a stand-in of the host and one of DOORS,
// and a user at the terminal.
#pragma once

#include "platform/Platform.h"
#include "standins/desktop/ConsoleDesktop.h"
#include "standins/desktop/FixedFolders.h"
#include "standins/doors-database/DoorsStandIn.h"
#include "standins/stage/Colleagues.h"
#include "standins/stage/HostSession.h"

namespace kestrune::workbench {

using namespace standins;

struct Terminal {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
};

struct Settings {
  std::string model;
  std::string doors;
  std::string data;  // the folder that stands for the user's own folders
  std::string package;
  bool yes = false;
  bool no = false;
  bool exclude = false;  // what failed from future imports
};

/// The folder for the user's data where none is named: the platform's.
std::string DefaultDataFolder();

/// A DOORS with its database, alone.
class DoorsMachine : private ObjectFactory {
 public:
  DoorsMachine(const Settings& settings, HeadlessDesktop* desktop = nullptr);

  DoorsStandIn& StandIn() { return stand_in_; }
  DoorsDatabase& Database() { return database_; }
  /// Runs one of the add-in's own scripts; throws CommandError with what the script answers as an error.
  Text RunAddInScript(int id, const Text& parameter);
  const Folders& UserFolders() const { return folders_; }

 protected:
  Object Create(TextView prog_id) override;

 private:
  DoorsDatabase database_;
  FixedFolders folders_;  // made once the database has opened: a wrong path leaves nothing behind
  DoorsStandIn stand_in_;
};

/// All of it, with the package of the settings selected in the host. Everything opens before anything is
/// done: a path that is wrong changes nothing.
class Machine : public Colleagues, private ObjectFactory {
 public:
  Machine(const Settings& settings, const Terminal& terminal);
  Machine(const Settings& settings, std::unique_ptr<ConsoleDesktop> desktop);

  HostSession& Host() { return host_; }
  DoorsStandIn& Doors() { return doors_.StandIn(); }
  ConsoleDesktop& Desktop() { return *desktop_; }

  void SetPhase(DoorsPhase state) override;
  void Load(const Text& file, const Text& folder) override;
  void AddView(const Text& module, const Text& name, const Text& attribute, const Text& value) override;

 private:
  Object Create(TextView prog_id) override;

  std::unique_ptr<ConsoleDesktop> desktop_;
  HostSession host_;
  DoorsMachine doors_;
  Platform platform_{*desktop_, doors_.UserFolders(), *this};
};

/// Opens the model alone.
OrimModel OpenModel(const Settings& settings);

}  // namespace kestrune::workbench
