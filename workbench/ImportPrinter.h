// An import at a terminal.
#pragma once

#include "import/frmImport.h"
#include "standins/desktop/ConsoleDesktop.h"

namespace kestrune::workbench {

/// Prints the import window's lines as they come; a line that may yet read otherwise is held back.
class ImportPrinter : public standins::ConsoleDesktop::Printer {
 public:
  ImportPrinter(const frmImport& form, std::ostream& out) : form_(form), out_(out) {}
  ~ImportPrinter() override { Flush(); }

  /// Has every import on this desktop printed.
  static void PrintImports(standins::ConsoleDesktop& desktop);

  void Repaint(Control& control) override;
  void Flush() override { Print(form_.Lines().All().size()); }

 private:
  void Print(std::size_t end);

  const frmImport& form_;
  std::ostream& out_;
  std::size_t printed_ = 0;
};

}  // namespace kestrune::workbench
