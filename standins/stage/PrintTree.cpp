#include "standins/stage/PrintTree.h"

#include <ostream>

#include "orim/Repository.h"

namespace kestrune::standins {

namespace {

constexpr std::size_t kGlimpse = 60;

const TaggedValueRow* FindTag(const TreeItem& item, TextView name) {
  for (const TaggedValueRow& tag : item.tagged_values)
    if (tag.name == name) return &tag;
  return nullptr;
}

/// The first line of the element's notes, cut to what fits beside a name.
Text Glimpse(const orim::Element& element) {
  const Text notes = element.Field(u"Notes");
  const Text line = notes.substr(0, notes.find_first_of(u"\r\n"));
  return line.size() == notes.size() && line.size() <= kGlimpse ? line : line.substr(0, kGlimpse) + u" ...";
}

void PrintItem(const TreeItem& item, const orim::Repository& repository, std::ostream& out) {
  const bool is_package = item.type == u"Package";
  out << std::string(2 * (static_cast<std::size_t>(item.depth) + 1), ' ') << ToUtf8(item.name);
  if (is_package) out << '/';
  if (const TaggedValueRow* identifier = FindTag(item, u"Object Identifier"))
    out << "  [" << ToUtf8(identifier->value) << "]";
  if (const Text notes = Glimpse(repository.ElementByID(item.id)); !notes.empty())
    out << "  " << ToUtf8(notes);
  out << '\n';
}

}  // namespace

void PrintTree(const OrimModel& model, std::ostream& out) {
  for (const PackageInfo& package : model.Packages()) {
    if (package.parent_id != 0) continue;
    out << ToUtf8(package.name) << "/\n";
    for (const TreeItem& item : model.Tree(package.id))
      PrintItem(item, orim::Repository(model.Repository()), out);
  }
}

}  // namespace kestrune::standins
