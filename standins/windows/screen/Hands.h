// How a user at the screen gets anything done: on the thread of the windows, while everything that opens on
// account of it is used until it has closed.
#pragma once

#include <functional>
#include <windows.h>

namespace kestrune::standins {

class Hands {
 public:
  virtual ~Hands() = default;
  /// Returns when `work` is done, or when a menu is open in the middle of it. Throws what the work throws.
  virtual void Do(std::function<void()> work) = 0;
  /// As Do, but a menu that is open stays so.
  virtual void Look(std::function<void()> look) = 0;
  /// Lets one interval of the timers pass.
  virtual void Wait() = 0;

  /// The menu that is open, or null.
  virtual HWND OpenMenu() const = 0;
  /// Chooses an item of the open menu, from 0, and returns when all is done that it does.
  virtual void Choose(std::size_t item) = 0;
};

}  // namespace kestrune::standins
