// kestrune-host: the host as a Windows program, which plays scripts on the add-in's real windows.
#include <CLI/CLI.hpp>
#include <iostream>

#include "platform/Files.h"
#include "standins/stage/Stage.h"
#include "standins/windows/host/HostProgram.h"
#include "standins/windows/process/Arguments.h"
#include "standins/windows/process/ComThread.h"
#include "standins/windows/screen/ScreenUser.h"

namespace kestrune::standins {

namespace {

struct Words {
  std::string script, model, package, doors, doors_program, workbench, log;
  bool by_keyboard = false;
};

/// What befalls a DOORS that is a program of its own.
std::vector<play::Command> FaultCommands(DoorsProcess& doors) {
  return {
      {u"crash TEXT",
       [&doors](const play::Statement& line) { doors.DieAtPerm(std::stoi(ToUtf8(line.texts[0]))); }, true},
      {u"damage", [&doors](const play::Statement&) { doors.DamageNextExport(); }, true},
  };
}

void Play(const Words& words) {
  const Text script = FromUtf8(words.script);
  HostProgram host({.model = FromUtf8(words.model),
                    .package = FromUtf8(words.package),
                    .doors = {.database = FromUtf8(words.doors),
                              .program = FromUtf8(words.doors_program),
                              .workbench = FromUtf8(words.workbench),
                              .log = FromUtf8(words.log)}});
  Stage stage(host.Session(), host.Doors(), host.Screen(), ToPath(script).parent_path(), std::cout);
  auto commands = stage.Commands();
  for (play::Command& fault : FaultCommands(host.Doors())) commands.push_back(std::move(fault));
  const Means& means = words.by_keyboard ? kKeyboard : kMouse;
  ScreenUser(std::cout, std::cerr, {.by = means}).Play(ReadScript(script, commands), commands);
}

int Run(std::vector<std::string> args) {
  CLI::App app("The host, simulated, with the registered add-in in it", "kestrune-host");
  app.allow_windows_style_options(false)->require_subcommand(1);  // paths may begin with "/"
  Words words;
  CLI::App* play = app.add_subcommand("play", "Play a script of what a user does at the screen");
  play->callback([&words] { Play(words); });
  play->add_option("SCRIPT", words.script, "The script's file")->required();
  play->add_option("--model", words.model, "The model")->required();
  play->add_option("--package", words.package, "The package, by name or path")->required();
  play->add_option("--doors", words.doors, "The DOORS database")->required();
  play->add_option("--doors-program", words.doors_program,
                   "kestrune-doors.exe, if it is not beside this program");
  play->add_option("--workbench", words.workbench, "The native kestrune-workbench, for the command load");
  play->add_flag("--keyboard", words.by_keyboard, "By a user who has no mouse");
  play->add_option("--doors-log", words.log, "The file for what scripts print in DOORS");
  try {
    std::reverse(args.begin(), args.end());
    app.parse(args);
    return 0;
  } catch (const CLI::ParseError& failure) {
    return app.exit(failure) ? 1 : 0;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}

}  // namespace

}  // namespace kestrune::standins

int main() {
  using namespace kestrune::standins;
  GetDesktopWindow();  // Wine: the first call of the window system must not come from two threads at once
  const ComThread com;
  return Run(ProgramArguments());
}
