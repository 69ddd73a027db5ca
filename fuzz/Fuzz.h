// What the fuzzers share. Each of them is one function: it takes any bytes, hands them to one of the readers of foreign
// input, and requires of what comes out what holds for every input.
#pragma once

#include <string>
#include <string_view>

#include "platform/Text.h"

namespace kestrune::fuzz {

/// To be defined by each fuzzer, and called for each input.
void Fuzz(std::string_view input);

/// Ends the process, so that the input is kept, when the requirement is not met.
void Require(bool met, const char* requirement);

/// A file of this process that holds the input; gone at the end of the process.
const Text& FileOf(std::string_view input);

/// The folder that it lies in.
const Text& Scratch();

/// The input in front of the first line end, and what lies behind it.
struct Halves {
  std::string_view head, tail;
};
Halves SplitLine(std::string_view input);

}  // namespace kestrune::fuzz
