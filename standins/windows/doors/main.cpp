// kestrune-doors: DOORS as a Windows program, over a database of the stand-in.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iostream>

#include "platform/Files.h"
#include "standins/windows/doors/DoorsProgram.h"
#include "standins/windows/process/Arguments.h"
#include "standins/windows/process/ComThread.h"

namespace kestrune::standins {

namespace {

constexpr const char* kStartedByCom = "-Embedding";  // what COM adds to the registered command line

struct Settings {
  std::string database;
  std::string log;
  std::string state = "ready";
  bool registers = false;
  bool unregisters = false;
};

void Run(const Settings& settings) {
  const std::string& database = settings.database;
  if (settings.unregisters) return UnregisterDoors();
  if (settings.registers)
    return RegisterDoors(std::filesystem::absolute(ToPath(FromUtf8(database))).wstring());
  DoorsProgram(FromUtf8(database), FromUtf8(settings.log), DoorsPhaseNamed(FromUtf8(settings.state))).Run();
}

int Start(std::vector<std::string> args) {
  CLI::App app("DOORS, simulated, as \"Doors.Application\"", "kestrune-doors");
  app.allow_windows_style_options(false);  // the path of the database may begin with "/"
  Settings settings;
  app.add_option("DB", settings.database, "The DOORS database")->required();
  app.add_option("--state", settings.state, "How far it has come")
      ->check(CLI::IsMember({"starting", "login", "password", "ready"}))
      ->capture_default_str();
  app.add_option("--log", settings.log, "The file that what scripts print is appended to");
  CLI::Option* registers =
      app.add_flag("--register", settings.registers, "Register the class for this machine");
  app.add_flag("--unregister", settings.unregisters, "Take the class from the registry")->excludes(registers);
  try {
    std::reverse(args.begin(), args.end());
    app.parse(args);
    Run(settings);
    return 0;
  } catch (const CLI::ParseError& failure) {
    return app.exit(failure) ? 1 : 0;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    if (!settings.log.empty())
      std::ofstream(ToPath(FromUtf8(settings.log)), std::ios::app) << failure.what() << '\n';
    return 1;
  }
}

}  // namespace

}  // namespace kestrune::standins

int main() {
  using namespace kestrune::standins;
  const ComThread com;
  auto args = ProgramArguments();
  std::erase(args, kStartedByCom);
  return Start(std::move(args));
}
