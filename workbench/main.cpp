#include <iostream>

#include "workbench/Program.h"

int main(int argc, char** argv) {
  return kestrune::workbench::RunWorkbench({argv + 1, argv + argc}, {std::cin, std::cout, std::cerr});
}
