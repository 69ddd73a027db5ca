// The linked package as a test compares it: what is in it, by Object Identifier, in a form that a reference
// can be written in as well and that reads well where the two differ.
#pragma once

#include <map>
#include <sstream>

#include "tests/workbench/EndToEnd.h"

namespace kestrune::testing {

struct ElementState {
  bool in_trash = false;
  Text parent;  // identifier; "" at the top
  int position = 0;
  std::map<Text, Text> values;  // of fields and tagged values, by name; those that are not empty
};
using PackageState = std::map<Text, ElementState>;

/// In one line, with long runs of a character cut short. Of an element in the trash only what it holds, for
/// where it lies in there is nobody's concern.
inline std::string Describe(const ElementState& element) {
  std::ostringstream out;
  if (element.in_trash)
    out << "in the trash";
  else
    out << "below [" << ToUtf8(element.parent) << "] at " << element.position;
  for (const auto& [name, value] : element.values) {
    out << ", " << ToUtf8(name) << "=\"";
    for (std::size_t i = 0, run = 0; i < value.size(); i += run) {
      run = std::min(value.find_first_not_of(value[i], i), value.size()) - i;
      if (run > 8)
        out << ToUtf8({&value[i], 1}) << '*' << run;
      else if (value[i] < u' ')
        for (std::size_t j = 0; j < run; ++j) out << '\\' << static_cast<int>(value[i]);
      else
        out << ToUtf8({&value[i], run});
    }
    out << '"';
  }
  return out.str();
}

/// Fails for every element that is not as expected.
inline void ExpectPackage(const PackageState& actual, const PackageState& expected) {
  for (const auto& [identifier, element] : expected) {
    const auto found = actual.find(identifier);
    EXPECT_EQ(found == actual.end() ? "missing" : Describe(found->second), Describe(element))
        << ToUtf8(identifier);
  }
  for (const auto& [identifier, element] : actual)
    EXPECT_TRUE(expected.count(identifier)) << ToUtf8(identifier) << ' ' << Describe(element);
}

/// Reads the package through the host, with the elements' fields of these names. What no import may leave
/// behind fails the test: two elements with the same identifier, two tagged values of the same name, a second
/// trash package; and an element without an identifier, unless they are counted in `strays`.
inline PackageState ReadPackage(const EndToEnd& setup, const std::vector<Text>& fields,
                                int* strays = nullptr) {
  std::map<std::int32_t, Text> identifiers;
  std::map<std::int32_t, std::map<Text, Text>> tagged_values;
  int packages = 0;
  const auto items = setup.model.Tree(setup.package_id);
  for (const auto& item : items) {
    if (item.type == u"Package" && ++packages > 1) ADD_FAILURE() << "a second trash package";
    for (const auto& tag : item.tagged_values) {
      const Text value = tag.value == u"<memo>" ? tag.notes : tag.value;
      if (!tagged_values[item.id].emplace(tag.name, value).second)
        ADD_FAILURE() << "a second tagged value " << ToUtf8(tag.name) << " at " << ToUtf8(item.name);
      if (tag.name == u"Object Identifier") identifiers[item.id] = value;
    }
  }
  PackageState package;
  for (const auto& item : items) {
    if (item.type == u"Package") continue;
    if (!identifiers.count(item.id)) {
      if (!strays) ADD_FAILURE() << "no identifier: " << ToUtf8(item.name);
      if (strays) ++*strays;
      continue;
    }
    ElementState element{.in_trash = item.package_id != setup.package_id, .position = item.tree_pos};
    if (item.parent_id != 0)
      element.parent = identifiers.count(item.parent_id) ? identifiers[item.parent_id] : u"?";
    const orim::Element stored = setup.repository.ElementByID(item.id);
    for (const Text& field : fields) element.values[field] = stored.Field(field);
    for (const auto& [name, value] : tagged_values[item.id])
      if (name != u"Object Identifier") element.values[name] = value;
    std::erase_if(element.values, [](const auto& value) { return value.second.empty(); });
    if (!package.emplace(identifiers[item.id], element).second)
      ADD_FAILURE() << "two elements for " << ToUtf8(identifiers[item.id]);
  }
  return package;
}

}  // namespace kestrune::testing
