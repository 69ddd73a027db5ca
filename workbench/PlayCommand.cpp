#include "platform/Files.h"
#include "standins/play/PlayDesktop.h"
#include "standins/stage/Stage.h"
#include "workbench/Commands.h"
#include "workbench/ImportPrinter.h"

namespace kestrune::workbench {

void Play(const Settings& settings, const std::string& script, const Terminal& terminal) {
  auto owned = std::make_unique<play::PlayDesktop>(terminal.in, terminal.out, terminal.err);
  play::PlayDesktop& desktop = *owned;
  ImportPrinter::PrintImports(desktop);
  Machine machine(settings, std::move(owned));
  Stage stage(machine.Host(), machine, desktop, std::filesystem::path(script).parent_path(), terminal.out);
  const auto commands = stage.Commands();
  desktop.Play(ReadScript(FromUtf8(script), commands), commands);
}

}  // namespace kestrune::workbench
