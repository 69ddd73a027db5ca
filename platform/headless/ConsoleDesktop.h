// A desktop at a terminal: message boxes go to standard error as "[title] text", questions are answered by a
// fixed answer or from standard input, forms are used by handlers that the program gives.
#pragma once

#include <iosfwd>
#include <memory>

#include "platform/headless/HeadlessDesktop.h"

namespace kestrune {

/// UTF-8, with line feeds for line ends.
std::string ForTerminal(TextView text);

class ConsoleDesktop : public HeadlessDesktop {
 public:
  /// Without a fixed answer every question is asked, until the answer is y, yes, n or no in any case; the end
  /// of the input is No.
  ConsoleDesktop(std::istream& in, std::ostream& out, std::ostream& err, std::optional<Answer> fixed_answer)
      : in_(in), out_(out), err_(err), fixed_answer_(fixed_answer) {}

  /// Has forms of this class used from now on by `use`, which must close them. A form that nobody uses is
  /// closed at once.
  template <typename FormClass>
  void UseForm(std::function<void(FormClass&)> use) {
    users_.push_back([use = std::move(use)](Form& form) {
      auto* wanted = dynamic_cast<FormClass*>(&form);
      if (wanted) use(*wanted);
      return wanted != nullptr;
    });
  }

  /// Prints the lines of forms' list boxes of this name on standard output, as they come.
  void PrintLinesOf(Text list_box_name) { printed_list_ = std::move(list_box_name); }

 protected:
  void Use(Form& form) override;
  Answer AnswerTo(const Message& message) override;
  std::optional<Text> TextFor(const Text& title, const Text& prompt) override;
  std::unique_ptr<FormPeer> PeerFor(Form& form) override;

  /// Puts a message box on the terminal, after the lines that came before it.
  void Print(const Message& message);

 private:
  class LinePrinter;

  std::istream& in_;
  std::ostream& out_;
  std::ostream& err_;
  std::optional<Answer> fixed_answer_;
  std::vector<std::function<bool(Form&)>> users_;
  Text printed_list_;
  std::vector<LinePrinter*> printers_;  // of the open forms that are printed
};

}  // namespace kestrune
