// What a user expects of an import, worked out without any of the code that carries it out: a module as plain
// maps, and the package that must come of it.
#pragma once

#include <functional>

#include "tests/workbench/PackageState.h"

namespace kestrune::testing {

struct ReferenceObject {
  int parent = 0;
  Text part = u"none";
  bool deleted = false;
  bool readable = true;
  std::map<Text, Text> values;

  Text Value(const Text& attribute) const {
    const auto found = values.find(attribute);
    return found == values.end() ? Text() : found->second;
  }
};

/// Which objects a view shows; an empty one shows all.
using ReferenceView = std::function<bool(const ReferenceObject&)>;

struct ReferenceModule {
  std::map<int, ReferenceObject> objects;    // by absolute number
  std::map<int, std::vector<int>> children;  // in their order; of 0: the top level
  std::map<Text, Text> rich_texts;           // and how the host writes them

  /// The object and all below it, in module order; of 0 the whole module.
  std::vector<int> Branch(int number) const {
    std::vector<int> branch;
    if (number != 0) branch.push_back(number);
    const auto below = children.find(number);
    if (below == children.end()) return branch;
    for (const int child : below->second) {
      const auto deeper = Branch(child);
      branch.insert(branch.end(), deeper.begin(), deeper.end());
    }
    return branch;
  }

  /// A table is shown as a whole when the view shows any part of it.
  bool IsShown(int number, const ReferenceView& view) const {
    if (!view) return true;
    if (objects.at(number).part == u"none") return view(objects.at(number));
    while (objects.at(number).part != u"table") number = objects.at(number).parent;
    const auto table = Branch(number);
    return std::any_of(table.begin(), table.end(), [&](int part) { return view(objects.at(part)); });
  }

  bool IsImported(int number, const ReferenceView& view) const {
    const ReferenceObject& object = objects.at(number);
    return !object.deleted && object.readable && IsShown(number, view);
  }

  /// Line ends as the host keeps them, without what XML cannot carry.
  Text InTheHost(const Text& value) const {
    if (const auto rich = rich_texts.find(value); rich != rich_texts.end()) return rich->second;
    Text text;
    for (const char16_t c : value) {
      if (c == u'\f' || c == u'\r') continue;
      if (c == u'\n') text += u'\r';
      text += c;
    }
    return text;
  }

  /// `values_of` gives what an element must hold for an object.
  PackageState Package(
      const ReferenceView& view,
      const std::function<std::map<Text, Text>(int, const ReferenceObject&)>& values_of) const {
    PackageState package;
    std::map<Text, int> positions;
    for (const int number : Branch(0)) {
      if (!IsImported(number, view)) continue;
      const ReferenceObject& object = objects.at(number);
      ElementState element;
      if (object.parent != 0 && IsImported(object.parent, view))
        element.parent = u"R" + ToText(object.parent);
      element.position = positions[element.parent] += 10;
      element.values = values_of(number, object);
      std::erase_if(element.values, [](const auto& value) { return value.second.empty(); });
      package[u"R" + ToText(number)] = element;
    }
    return package;
  }
};

}  // namespace kestrune::testing
