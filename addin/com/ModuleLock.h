// What keeps Kestrune.dll loaded: as long as one of these lives, it must not be unloaded.
#pragma once

#include <atomic>

namespace kestrune {

class ModuleLock {
 public:
  ModuleLock() { ++count_; }
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
  ~ModuleLock() { --count_; }

  /// What a client asks for without owning an object (LockServer).
  static void Add() { ++count_; }
  static void Remove() { --count_; }
  static bool IsAny() { return count_ != 0; }

 private:
  inline static std::atomic<long> count_ = 0;
};

}  // namespace kestrune
