#include "workbench/Program.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "common/Resources.h"
#include "platform/Files.h"
#include "workbench/Commands.h"
#include "workbench/Demo.h"

namespace kestrune::workbench {

namespace {

constexpr int kFailed = 1;

/// The command line: its options are bound to the members, its commands run with them.
class CommandLine {
 public:
  explicit CommandLine(const Terminal& terminal) : terminal_(terminal) {
    app_.require_subcommand(0, 1);  // so that an unknown word is named, see Run
    app_.failure_message(
        [](const CLI::App*, const CLI::Error& failure) { return std::string(failure.what()) + "\n"; });
    AddDoorsCommands();
    AddModelCommands();
    AddLinkCommands();
    AddTransferCommands();
    AddPlay();
    AddDemo();
  }

  void Run(std::vector<std::string> args) {
    std::reverse(args.begin(), args.end());
    app_.parse(args);
    if (app_.get_subcommands().empty()) throw CommandError(u"A command is needed; --help lists them.");
  }
  /// For whoever started the program and cannot wait for its end.
  void ReportEnd(std::string_view what_went_wrong) const {
    if (report_.empty()) return;
    const Text unfinished = FromUtf8(report_ + ".new");
    WriteFile(unfinished, what_went_wrong);
    std::filesystem::rename(ToPath(unfinished), report_);
  }
  int Report(const CLI::ParseError& failure) {
    return app_.exit(failure, terminal_.out, terminal_.err) ? kFailed : 0;
  }

 private:
  using Action = std::function<void()>;

  CLI::App* Command(CLI::App* parent, const std::string& name, const std::string& what,
                    const Action& action) {
    CLI::App* command = parent->add_subcommand(name, what);
    command->callback(action);
    command->add_option("--data", settings_.data, "The folder that stands for the user's own folders")
        ->capture_default_str();
    return command;
  }
  void TakesDoors(CLI::App* command) {
    command->add_option("--doors", settings_.doors, "The DOORS database")->required();
  }
  void TakesModel(CLI::App* command) {
    command->add_option("--model", settings_.model, "The model")->required();
  }
  void TakesPackage(CLI::App* command) {
    command->add_option("--package", settings_.package, "The package, by name or path")->required();
  }
  /// A command that runs the add-in.
  CLI::App* AddInCommand(const std::string& name, const std::string& what, const Action& action) {
    CLI::App* command = Command(&app_, name, what, action);
    TakesModel(command);
    TakesDoors(command);
    TakesPackage(command);
    CLI::Option* yes = command->add_flag("--yes", settings_.yes, "Answer every question with Yes");
    command->add_flag("--no", settings_.no, "Answer every question with No")->excludes(yes);
    return command;
  }

  void AddDoorsCommands() {
    CLI::App* doors =
        app_.add_subcommand("doors", "The DOORS database: load it, look at it")->require_subcommand(1);
    CLI::App* load =
        Command(doors, "load", "Load a ReqIF file; each of its documents becomes a formal module",
                [this] { LoadIntoDoors(settings_, file_, folder_, terminal_); });
    load->add_option("FILE", file_, "A .reqif or .reqifz file")->required();
    load->add_option("--at", folder_, "Where to, such as /Project/Folder");
    load->add_option(
        "--report", report_,
        "A file for what went wrong, empty if nothing did; it appears when the command has ended");
    CLI::App* modules =
        Command(doors, "modules", "List the formal modules", [this] { ListModules(settings_, terminal_); });
    CLI::App* views = Command(doors, "views", "List the views of a module",
                              [this] { ListViews(settings_, module_, terminal_); });
    views->add_option("MODULE", module_, "The module's path")->required();
    for (CLI::App* command : {load, modules, views}) TakesDoors(command);
    CLI::App* dxl = Command(&app_, "dxl", "Run a DXL script and print its result",
                            [this] { RunDxl(settings_, file_, parameter_, terminal_); });
    dxl->add_option("SCRIPT", file_, "The script's file")->required();
    dxl->add_option("--param", parameter_, "What the script finds in its result slot");
    TakesDoors(dxl);
  }

  void AddModelCommands() {
    CLI::App* create =
        Command(&app_, "new", "Make a model with one package", [this] { NewModel(settings_, terminal_); });
    create->add_option("MODEL", settings_.model, "The file to make")->required();
    TakesPackage(create);
    TakesModel(Command(&app_, "tree", "Print the packages and elements of a model",
                       [this] { PrintTree(settings_, terminal_); }));
    TakesModel(Command(&app_, "packages", "List the linked packages",
                       [this] { ListLinkedPackages(settings_, terminal_); }));
  }

  void AddLinkCommands() {
    AddInCommand("link", "Link a package to a DOORS module", [this] { Link(settings_, module_, terminal_); })
        ->add_option("--module", module_, "The module's path")
        ->required();
    AddInCommand("unlink", "Take the link from a package", [this] { Unlink(settings_, terminal_); });
    CLI::App* options = AddInCommand("options", "Look at and change the options of a linked package",
                                     [this] { EditOptions(settings_, view_, template_, print_, terminal_); });
    options->add_option("--view", view_, "Restrict the import to this view of the module");
    options->add_option("--template", template_, "Apply the mapping template in this file");
    options->add_flag("--print", print_, "Print the options as they are then");
  }

  void AddTransferCommands() {
    AddInCommand("import", "Bring the package into line with its module",
                 [this] { Transfer(settings_, text::kMenuImport, terminal_); })
        ->add_flag(
            "--exclude", settings_.exclude,
            "Drop the rules whose attributes could not be imported, which neither --yes nor --no does");
    AddInCommand("export-check", "List the elements that the module lacks",
                 [this] { Transfer(settings_, text::kMenuExport, terminal_); });
    AddInCommand("locate", "Show an element's object in DOORS",
                 [this] { Locate(settings_, element_, terminal_); })
        ->add_option("ELEMENT", element_, "The element's name or Object Identifier")
        ->required();
  }

  void AddPlay() {
    CLI::App* play = Command(&app_, "play", "Play a script of what users do in the add-in's dialogs",
                             [this] { Play(settings_, file_, terminal_); });
    play->add_option("SCRIPT", file_, "The script's file")->required();
    TakesModel(play);
    TakesDoors(play);
    TakesPackage(play);
  }

  void AddDemo() {
    app_.add_subcommand("demo", "A tour on real files")->callback([this] { RunDemo(terminal_); });
  }

  const Terminal& terminal_;
  CLI::App app_{"Runs Kestrune Link between a stand-in of the host and one of DOORS", "kestrune-workbench"};
  Settings settings_{.data = DefaultDataFolder()};
  std::string file_, folder_, report_, module_, parameter_, view_, template_, element_;
  bool print_ = false;
};

}  // namespace

int RunWorkbench(const std::vector<std::string>& args, const Terminal& terminal) {
  CommandLine command_line(terminal);
  try {
    command_line.Run(args);
    terminal.out.flush();
    if (!terminal.out) throw CommandError(u"The output cannot be written.");
    command_line.ReportEnd("");
    return 0;
  } catch (const CLI::ParseError& failure) {
    return command_line.Report(failure);
  } catch (const std::exception& failure) {
    terminal.err << failure.what() << '\n';
    command_line.ReportEnd(failure.what());
    return kFailed;
  }
}

}  // namespace kestrune::workbench
