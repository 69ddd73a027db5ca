// What a view of a module lets through.
#pragma once

#include "standins/doors-database/ModuleContent.h"

namespace kestrune::standins {

inline constexpr TextView kStandardView = u"Standard view";

struct FilterCondition {
  enum class Operator { kEquals, kNotEquals, kContains };
  Text attribute;
  Operator op = Operator::kEquals;
  Text value;
};

struct View {
  bool loadable = true;
  std::vector<FilterCondition> conditions;  // all must hold; none lets everything through
};

/// Nothing when the module has no view of that name. Every module has the standard
/// view, which filters nothing.
std::optional<View> ReadView(Database& database, ItemId module, TextView name);

/// Which objects meet all conditions, by their place. A table stands or falls as a whole: it is let
/// through when any of its parts is. Nothing when a condition names an attribute that objects of the
/// module do not have.
std::optional<std::vector<bool>> Accepted(const ModuleContent& content,
                                          const std::vector<FilterCondition>& conditions);

}  // namespace kestrune::standins
