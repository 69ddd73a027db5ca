// Regular expressions as DXL has them: * + . ^ $ ( ) [abc] [^abc] [a-z] | and \ before a character that
// stands for itself. The leftmost match is found, and of several there the one that prefers more repetitions
// and earlier alternatives. All alternatives are followed side by side, so a search takes time proportional
// to the length of the text times the length of the pattern, whatever the pattern.
#pragma once

#include <vector>

#include "standins/dxl/RunState.h"

namespace kestrune::dxl {

class Regex {
 public:
  static constexpr std::size_t kMaxPatternLength = 1000;
  static constexpr int kMaxGroups = 9;

  /// Throws ScriptError for a malformed pattern and for what this engine does not know, such as ? and {}.
  explicit Regex(TextView pattern);

  /// The whole match and then the groups; empty when nothing matches. Counts as work of the run under way.
  std::vector<Extent> Search(TextView text) const;

  std::size_t Bytes() const { return program_.size() * sizeof(Instruction) + set_bytes_; }

  enum class Kind { kChar, kAny, kSet, kLineStart, kLineEnd, kSplit, kJump, kSave, kMatch };
  struct Range {
    char16_t first;
    char16_t last;
  };
  /// Jumps are relative. A split tries `first` before `second`.
  struct Instruction {
    Kind kind;
    int first = 0;  // of a save: the number of the boundary
    int second = 0;
    char16_t character = 0;
    bool negated = false;
    std::vector<Range> set;
  };

 private:
  std::vector<Instruction> program_;
  int group_count_ = 0;
  std::size_t set_bytes_ = 0;
};

}  // namespace kestrune::dxl
