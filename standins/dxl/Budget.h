// What one run of a script may use up: cycles of work, and bytes of memory.
//
// A cycle is a statement or a turn of a loop. Work that grows with the length of a text counts as well, so
// that few statements cannot keep the machine busy for ever. Memory is what the script's texts, Buffers,
// arrays, Skips and other handles take while they live; what a script leaves behind outside itself (output,
// nodes of documents) is never given back.
#pragma once

#include <limits>

#include "platform/Text.h"

namespace kestrune::dxl {

/// Cycles after which DOORS would ask whether to go on. Nobody can answer, so the script is stopped with an
/// error. `pragma runLim, n` changes the limit, 0 lifts it.
inline constexpr long long kDefaultRunLimit = 1'000'000;
inline constexpr std::size_t kDefaultMemoryLimit = 1'000'000'000;  // bytes

/// Thrown to end a run that has used up its cycles or its memory; noError() does not hold it back.
struct OutOfBudget {
  Text message;
};

class Budget {
 public:
  explicit Budget(std::size_t memory_limit) : memory_limit_(memory_limit) {}
  Budget(const Budget&) = delete;
  Budget& operator=(const Budget&) = delete;

  /// The budget of the run under way in this thread; null outside of runs, when nothing is counted.
  static Budget* Current() { return current_; }

  /// `pragma runLim`: the cycles from now on; 0 lifts the limit.
  void SetRunLimit(std::int32_t cycles) { limit_ = cycles == 0 ? kNoLimit : cycles_ + cycles; }
  void Spend(long long cycles) {
    cycles_ += cycles;
    if (cycles_ > limit_) throw OutOfBudget{u"execution time limit reached"};
  }
  /// The work of going through so many characters once.
  void SpendOn(std::size_t characters) {
    characters_ += characters;
    if (characters_ < kCharactersPerCycle) return;
    Spend(static_cast<long long>(characters_ / kCharactersPerCycle));
    characters_ %= kCharactersPerCycle;
  }

  /// Throws, and takes nothing, when the limit would be passed.
  void Take(std::size_t bytes) {
    Foresee(bytes);
    in_use_ += bytes;
    if (in_use_ > peak_) peak_ = in_use_;
  }
  void Give(std::size_t bytes) { in_use_ -= bytes; }
  /// Throws when so many bytes more would pass the limit.
  void Foresee(std::size_t bytes) const {
    if (bytes > memory_limit_ - in_use_) throw OutOfBudget{u"memory limit reached"};
  }
  void CountString() { ++strings_; }

  long long Cycles() const { return cycles_; }
  /// Texts made, the empty ones left out: what DOORS would keep in its string table.
  long long Strings() const { return strings_; }
  std::size_t PeakBytes() const { return peak_; }

  /// Makes a budget the current one for as long as it lives.
  class Scope {
   public:
    explicit Scope(Budget& budget) : outer_(current_) { current_ = &budget; }
    ~Scope() { current_ = outer_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    Budget* outer_;
  };

 private:
  static constexpr long long kNoLimit = std::numeric_limits<long long>::max();
  static constexpr std::size_t kCharactersPerCycle = 100;
  static thread_local Budget* current_;

  long long cycles_ = 0;
  long long limit_ = kDefaultRunLimit;
  std::size_t characters_ = 0;  // gone through since the last whole cycle of them
  long long strings_ = 0;
  std::size_t in_use_ = 0;
  std::size_t peak_ = 0;
  std::size_t memory_limit_;
};

/// Bytes taken from the current budget, given back at the end of its life. It must not outlive the run.
class Lease {
 public:
  explicit Lease(std::size_t bytes = 0) : budget_(Budget::Current()) { Resize(bytes); }
  ~Lease() { Resize(0); }
  Lease(const Lease&) = delete;
  Lease& operator=(const Lease&) = delete;

  void Resize(std::size_t bytes) {
    if (!budget_) return;
    if (bytes > bytes_)
      budget_->Take(bytes - bytes_);
    else
      budget_->Give(bytes_ - bytes);
    bytes_ = bytes;
  }
  void Grow(std::size_t bytes) { Resize(bytes_ + bytes); }
  void Shrink(std::size_t bytes) { Resize(bytes_ - bytes); }

 private:
  Budget* budget_;
  std::size_t bytes_ = 0;
};

}  // namespace kestrune::dxl
