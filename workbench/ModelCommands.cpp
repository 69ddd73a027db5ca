#include <iostream>

#include "addin/OrimDoors.h"
#include "common/LinkFile.h"
#include "standins/stage/PrintTree.h"
#include "workbench/Commands.h"
#include "workbench/NewFile.h"

namespace kestrune::workbench {

void NewModel(const Settings& settings, const Terminal& terminal) {
  if (settings.package.empty()) throw CommandError(u"A package needs a name.");
  if (std::filesystem::exists(settings.model))
    throw CommandError(FromUtf8(settings.model) + u": the file exists already");
  NewFile draft(settings.model);
  OrimModel::Create(draft.Draft()).AddPackage(0, FromUtf8(settings.package));
  draft.Finish();
  terminal.out << settings.model << ": a model with the package \"" << settings.package << "\"\n";
}

void PrintTree(const Settings& settings, const Terminal& terminal) {
  PrintTree(OpenModel(settings), terminal.out);
}

void ListLinkedPackages(const Settings& settings, const Terminal& terminal) {
  OrimModel model = OpenModel(settings);
  ConsoleDesktop desktop(terminal.in, terminal.out, terminal.err);
  const FixedFolders folders(FromUtf8(settings.data));
  struct NoObjects : ObjectFactory {
    Object Create(TextView prog_id) override {
      throw AutomationError(error::kNoSuchClass, u"workbench", Text(u"There is no class ").append(prog_id));
    }
  } no_objects;
  const Platform platform{desktop, folders, no_objects};
  OrimDoors add_in(platform);
  const orim::Repository repository(model.Repository());
  for (const Text& guid : add_in.Plexa_GetConnectedPackages(repository).ToTextArray()) {
    Text name = u"(in another model)";
    for (const PackageInfo& package : model.Packages())
      if (package.guid == guid) name = package.path;
    terminal.out << ToUtf8(guid + u"  " + name + u" -> " + GetLinkModulePath(platform, guid)) << '\n';
  }
}

}  // namespace kestrune::workbench
