// A list box whose lines are printed as they come.
#pragma once

#include <iosfwd>
#include <windows.h>

namespace kestrune::standins {

class PrintedList {
 public:
  PrintedList(HWND list, std::ostream& out) : list_(list), out_(out) {}
  /// Prints the lines that are new; on the list's thread.
  void PrintNew();

 private:
  HWND list_;
  std::ostream& out_;
  std::size_t printed_ = 0;
};

}  // namespace kestrune::standins
