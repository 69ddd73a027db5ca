// libxml2 alone, as the measure of what reading XML costs at the least: parsing into a tree and freeing it,
// with the options that the product parses with.
#pragma once

#include "platform/Text.h"

namespace kestrune::bench {

/// Both throw std::runtime_error for what is no XML.
void ParseFile(const Text& path);
void ParseText(TextView xml);
/// The same file, handed on to nobody and kept nowhere.
void ScanFile(const Text& path);

}  // namespace kestrune::bench
