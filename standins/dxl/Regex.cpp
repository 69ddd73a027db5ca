#include "standins/dxl/Regex.h"

#include <array>

#include "standins/dxl/RegexParser.h"

namespace kestrune::dxl {

namespace {

/// Where the whole match and the groups begin and end; -1 where they do not.
using Boundaries = std::array<int, 2 * (Regex::kMaxGroups + 1)>;

struct Thread {
  int at;  // index of an instruction that looks at a character, or of the match
  Boundaries boundaries;
};

bool Contains(const Regex::Instruction& set, char16_t c) {
  bool found = false;
  for (const Regex::Range& range : set.set) found = found || (c >= range.first && c <= range.last);
  return found != set.negated;
}

bool Accepts(const Regex::Instruction& instruction, char16_t c) {
  switch (instruction.kind) {
    case Regex::Kind::kChar:
      return instruction.character == c;
    case Regex::Kind::kAny:
      return c != u'\n';
    case Regex::Kind::kSet:
      return Contains(instruction, c);
    default:
      return false;
  }
}

/// One search: the threads alive at a position of the text, in order of preference.
class Searcher {
 public:
  Searcher(const std::vector<Regex::Instruction>& program, TextView text)
      : program_(program), text_(text), seen_at_(program.size(), -1) {
    unset_.fill(-1);
  }

  /// False when nothing matches.
  bool Run(Boundaries& best) {
    bool found = false;
    std::vector<Thread> threads;
    std::vector<Thread> next;
    for (int position = 0; position <= Size(); ++position) {
      SpendOnPosition(threads.size());
      if (!found) Follow(threads, 0, position, unset_);
      if (found && threads.empty()) break;
      next.clear();
      for (const Thread& thread : threads) {
        const Regex::Instruction& instruction = program_[static_cast<std::size_t>(thread.at)];
        if (instruction.kind == Regex::Kind::kMatch) {
          best = thread.boundaries;
          found = true;
          break;  // the threads behind it are less preferred
        }
        if (position < Size() && Accepts(instruction, At(position)))
          Follow(next, thread.at + 1, position + 1, thread.boundaries);
      }
      threads.swap(next);
    }
    return found;
  }

 private:
  /// A thread does several times the work of copying a character.
  static void SpendOnPosition(std::size_t threads) {
    constexpr std::size_t kWorkOfAThread = 5;
    if (Budget* const budget = Budget::Current()) budget->SpendOn(kWorkOfAThread * (threads + 1));
  }

  int Size() const { return static_cast<int>(text_.size()); }
  char16_t At(int position) const { return text_[static_cast<std::size_t>(position)]; }

  /// Adds the threads that `at` leads to without consuming a character. It calls itself at
  /// most once per instruction.
  void Follow(std::vector<Thread>& threads, int at, int position, Boundaries boundaries) {
    for (;;) {
      int& seen_at = seen_at_[static_cast<std::size_t>(at)];
      if (seen_at == position) return;
      seen_at = position;
      const Regex::Instruction& instruction = program_[static_cast<std::size_t>(at)];
      switch (instruction.kind) {
        case Regex::Kind::kJump:
          at += instruction.first;
          continue;
        case Regex::Kind::kSplit:
          Follow(threads, at + instruction.first, position, boundaries);
          at += instruction.second;
          continue;
        case Regex::Kind::kSave:
          boundaries[static_cast<std::size_t>(instruction.first)] = position;
          break;
        case Regex::Kind::kLineStart:
          if (position > 0 && At(position - 1) != u'\n') return;
          break;
        case Regex::Kind::kLineEnd:
          if (position < Size() && At(position) != u'\n') return;
          break;
        default:
          threads.push_back({at, boundaries});
          return;
      }
      ++at;
    }
  }

  const std::vector<Regex::Instruction>& program_;
  TextView text_;
  std::vector<int> seen_at_;  // per instruction: the position at which a thread last reached it
  Boundaries unset_;
};

}  // namespace

Regex::Regex(TextView pattern) {
  RegexParser parser(pattern);
  program_ = parser.Parse();
  group_count_ = parser.GroupCount();
  for (const Instruction& instruction : program_) set_bytes_ += instruction.set.capacity() * sizeof(Range);
}

std::vector<Extent> Regex::Search(TextView text) const {
  Boundaries boundaries;
  if (!Searcher(program_, text).Run(boundaries)) return {};
  std::vector<Extent> extents;
  for (std::size_t i = 0; i <= static_cast<std::size_t>(group_count_); ++i)
    extents.push_back({boundaries[2 * i], boundaries[2 * i + 1]});
  return extents;
}

}  // namespace kestrune::dxl
