#include "workbench/ImportPrinter.h"

#include <ostream>

namespace kestrune::workbench {

void ImportPrinter::PrintImports(standins::ConsoleDesktop& desktop) {
  desktop.PrintForms<frmImport>(
      [](frmImport& form, std::ostream& out) { return std::make_unique<ImportPrinter>(form, out); });
}

void ImportPrinter::Repaint(Control& control) {
  if (&control == &form_.List1) Print(form_.Lines().Settled());
}

void ImportPrinter::Print(std::size_t end) {
  const auto& lines = form_.Lines().All();
  for (; printed_ < end; ++printed_) out_ << standins::ForTerminal(lines[printed_]) << '\n';
  out_.flush();
}

}  // namespace kestrune::workbench
