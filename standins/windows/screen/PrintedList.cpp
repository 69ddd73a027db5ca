#include "standins/windows/screen/PrintedList.h"

#include <ostream>

#include "standins/windows/screen/WindowControls.h"

namespace kestrune::standins {

void PrintedList::PrintNew() {
  if (!IsWindow(list_)) return;
  const auto count = static_cast<std::size_t>(SendMessageW(list_, LB_GETCOUNT, 0, 0));
  for (; printed_ < count; ++printed_) out_ << ToUtf8(LineOf(list_, printed_)) << '\n';
  out_.flush();
}

}  // namespace kestrune::standins
