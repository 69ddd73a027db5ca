// The machine of one command: the add-in with its two neighbours, a stand-in of the host and one of DOORS,
// and a user at the terminal.
#pragma once

#include "addin/OrimDoors.h"
#include "platform/headless/ConsoleDesktop.h"
#include "platform/headless/FixedFolders.h"
#include "workbench/doors/DoorsStandIn.h"
#include "workbench/orim/OrimModel.h"

namespace kestrune::workbench {

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
};

/// The folder for the user's data where none is named: the platform's.
std::string DefaultDataFolder();

/// A command that cannot be carried out; the text is for the user, in one line.
struct CommandError : std::runtime_error {
  explicit CommandError(TextView what) : runtime_error(ToUtf8(what)) {}
};

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
  FixedFolders folders_;
  DoorsDatabase database_;
  DoorsStandIn stand_in_;
};

/// All of it, with the package of the settings selected in the host. Everything opens before anything is
/// done: a path that is wrong changes nothing.
class Machine : private ObjectFactory {
 public:
  Machine(const Settings& settings, const Terminal& terminal);
  Machine(const Settings& settings, std::unique_ptr<ConsoleDesktop> desktop);

  OrimModel& Model() { return model_; }
  DoorsStandIn& Doors() { return doors_.StandIn(); }
  DoorsDatabase& DoorsData() { return doors_.Database(); }
  ConsoleDesktop& Desktop() { return *desktop_; }
  OrimDoors& AddIn() { return add_in_; }
  orim::Repository Repository() const { return orim::Repository(model_.Repository()); }
  const PackageInfo& Package() const { return package_; }

  /// Selects a package in the host, by name or path.
  void SelectPackage(TextView path_or_name);
  /// Clicks an item of the add-in's menu, given as it stands there or by its text's id; throws CommandError
  /// when the menu does not offer it, such as Import where the package is not linked.
  void ClickMenu(const Text& item);
  void ClickMenu(int item_id);

 private:
  Object Create(TextView prog_id) override;

  std::unique_ptr<ConsoleDesktop> desktop_;
  OrimModel model_;
  PackageInfo package_;
  DoorsMachine doors_;
  Platform platform_{*desktop_, doors_.UserFolders(), *this};
  OrimDoors add_in_{platform_};
};

/// Opens the model alone.
OrimModel OpenModel(const Settings& settings);

}  // namespace kestrune::workbench
