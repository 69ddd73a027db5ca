// The modules that are measured. Each is always the same one for the same size.
#pragma once

#include "platform/Text.h"

namespace kestrune::bench {

/// A module, and the same one after its users have gone on working: every hundredth object has another text.
enum class Edition { kFirst, kNext };

struct Module {
  std::string name;
  std::vector<Text> rules;  // what the user maps besides the default rules
  void (*write_export)(const Text& path, int objects, Edition edition);
};

/// GeneratedModule.h
extern const Module kRequirements;

/// A hundred attributes, twenty of them mapped.
extern const Module kWide;
/// All objects at the top, with 16 attributes that are all mapped; and the same below one another, a tenth as many levels
/// as objects.
extern const Module kFlat;
extern const Module kDeep;
/// One object whose text has that many characters.
extern const Module kOneLong;

}  // namespace kestrune::bench
