// Turns the text of a regular expression into instructions for the search.
#pragma once

#include "standins/dxl/Regex.h"

namespace kestrune::dxl {

class RegexParser {
 public:
  using Program = std::vector<Regex::Instruction>;

  explicit RegexParser(TextView pattern) : pattern_(pattern) {}

  /// Throws ScriptError.
  Program Parse();
  int GroupCount() const { return groups_; }

 private:
  Program ParseAlternatives();
  Program ParseSequence();
  Program ParseRepeated();
  Program ParseAtom();
  Program ParseGroup();
  Program ParseSet();
  char16_t ParseSetCharacter();
  char16_t ParseEscaped();

  bool AtEnd() const { return next_ >= pattern_.size(); }
  bool Looks(char16_t c) const { return !AtEnd() && pattern_[next_] == c; }
  bool Skip(char16_t c);
  [[noreturn]] void Malformed(TextView why) const;

  TextView pattern_;
  std::size_t next_ = 0;
  int groups_ = 0;
};

}  // namespace kestrune::dxl
