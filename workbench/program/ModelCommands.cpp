#include <iostream>

#include "common/Utilities.h"
#include "workbench/program/Commands.h"

namespace kestrune::workbench {

namespace {

constexpr std::size_t kGlimpse = 60;

const TaggedValueRow* FindTag(const TreeItem& item, TextView name) {
  for (const TaggedValueRow& tag : item.TaggedValues)
    if (tag.Name == name) return &tag;
  return nullptr;
}

/// The first line of the element's notes, cut to what fits beside a name.
Text Glimpse(const orim::Element& element) {
  const Text notes = element.Field(u"Notes");
  const Text line = notes.substr(0, notes.find_first_of(u"\r\n"));
  return line.size() == notes.size() && line.size() <= kGlimpse ? line : line.substr(0, kGlimpse) + u" ...";
}

void PrintItem(const TreeItem& item, const orim::Repository& repository, std::ostream& out) {
  const bool is_package = item.Type == u"Package";
  out << std::string(2 * (static_cast<std::size_t>(item.Depth) + 1), ' ') << ToUtf8(item.Name);
  if (is_package) out << '/';
  if (const TaggedValueRow* identifier = FindTag(item, u"Object Identifier"))
    out << "  [" << ToUtf8(identifier->Value) << "]";
  if (const Text notes = Glimpse(repository.ElementByID(item.Id)); !notes.empty())
    out << "  " << ToUtf8(notes);
  out << '\n';
}

}  // namespace

void NewModel(const Settings& settings, const Terminal& terminal) {
  if (settings.package.empty()) throw CommandError(u"A package needs a name.");
  OrimModel model = OrimModel::Create(settings.model);
  model.AddPackage(0, FromUtf8(settings.package));
  terminal.out << settings.model << ": a model with the package \"" << settings.package << "\"\n";
}

void PrintTree(const Settings& settings, const Terminal& terminal) {
  PrintTree(OpenModel(settings), terminal);
}

void PrintTree(const OrimModel& model, const Terminal& terminal) {
  for (const PackageInfo& package : model.Packages()) {
    if (package.ParentId != 0) continue;
    terminal.out << ToUtf8(package.Name) << "/\n";
    for (const TreeItem& item : model.Tree(package.Id))
      PrintItem(item, orim::Repository(model.Repository()), terminal.out);
  }
}

void ListLinkedPackages(const Settings& settings, const Terminal& terminal) {
  OrimModel model = OpenModel(settings);
  ConsoleDesktop desktop(terminal.in, terminal.out, terminal.err, std::nullopt);
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
      if (package.Guid == guid) name = package.Path;
    terminal.out << ToUtf8(guid + u"  " + name + u" -> " + GetLinkModulePath(platform, guid)) << '\n';
  }
}

}  // namespace kestrune::workbench
