#include "platform/Desktop.h"

#include <algorithm>

namespace kestrune {

Desktop::Callback::Callback(Desktop& desktop) : desktop_(desktop) {
  if (desktop_.callbacks_++ == 0) desktop_.CallbackBegins();
}

Desktop::Callback::~Callback() {
  if (--desktop_.callbacks_ > 0) return;
  desktop_.CallbackEnds();
  desktop_.shown_once_.clear();
}

void Desktop::ShowOnce(const Message& message) {
  if (std::find(shown_once_.begin(), shown_once_.end(), message.Body) != shown_once_.end()) return;
  if (callbacks_ > 0) shown_once_.push_back(message.Body);
  Show(message);
}

}  // namespace kestrune
