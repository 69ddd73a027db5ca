// Handles that hold values, and so may hold each other: in chains of any length, and in circles.
#pragma once

#include <unordered_set>

#include "standins/dxl/Value.h"

namespace kestrune::dxl {

class Containers;

class Container : public std::enable_shared_from_this<Container> {
 public:
  explicit Container(Containers& all);
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;
  virtual ~Container();

  /// Lets go of everything in it, by way of Bury.
  virtual void Clear() = 0;

 protected:
  Containers& all_;
};

/// All containers of a run. What is alive at its end holds itself; it is cleared, so that nothing leaks.
class Containers {
 public:
  Containers() = default;
  Containers(const Containers&) = delete;
  Containers& operator=(const Containers&) = delete;
  ~Containers();

  /// Ends the life of values one after the other, so that a chain of containers takes no native stack.
  void Bury(std::vector<Value> values);

 private:
  friend class Container;

  std::unordered_set<Container*> living_;
  std::vector<Value> dying_;
  bool is_burying_ = false;
};

}  // namespace kestrune::dxl
