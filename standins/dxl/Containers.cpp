#include "standins/dxl/Containers.h"

#include <utility>

namespace kestrune::dxl {

Container::Container(Containers& all) : all_(all) {
  all_.living_.insert(this);
}

Container::~Container() {
  all_.living_.erase(this);
}

Containers::~Containers() {
  while (!living_.empty()) {
    const auto held = (*living_.begin())->shared_from_this();  // clearing it may take its last owner
    living_.erase(living_.begin());
    held->Clear();
  }
}

void Containers::Bury(std::vector<Value> values) {
  dying_.insert(dying_.end(), std::make_move_iterator(values.begin()), std::make_move_iterator(values.end()));
  if (std::exchange(is_burying_, true)) return;
  while (!dying_.empty()) {
    const Value last = std::move(dying_.back());
    dying_.pop_back();
  }
  is_burying_ = false;
}

}  // namespace kestrune::dxl
