// A desktop at a terminal: message boxes go to standard error as "[title] text", questions are answered by a
// fixed answer or from standard input, forms are used by handlers that the program gives.
#pragma once

#include <iosfwd>
#include <memory>

#include "standins/desktop/HeadlessDesktop.h"

namespace kestrune::standins {

/// UTF-8, with line feeds for line ends.
std::string ForTerminal(TextView text);

class ConsoleDesktop : public HeadlessDesktop {
 public:
  /// The answer to a question; nothing where the user is to be asked.
  using Answers = std::function<std::optional<Answer>(const Message&)>;

  /// A question that has no answer is asked, until the answer is y, yes, n or no in any case; the end of the input is
  /// No.
  ConsoleDesktop(std::istream& in, std::ostream& out, std::ostream& err, Answers answers = {})
      : in_(in), out_(out), err_(err), answers_(std::move(answers)) {}

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

  /// A form's peer that writes on the terminal what the form shows.
  class Printer : public FormPeer {
   public:
    ~Printer() override {
      if (all_) std::erase(*all_, this);
    }
    /// Writes what is still held back; something else is about to be written.
    virtual void Flush() = 0;

    void FormChanged(Form&) override {}
    void ControlChanged(Control&) override {}
    void Repaint(Control&) override {}
    void SetFocus(Control&) override {}
    void PopUp(Menu&, Control&) override {}

   private:
    friend class ConsoleDesktop;
    std::vector<Printer*>* all_ = nullptr;
  };

  /// Gives every form of this class a printer, which writes on `out`.
  template <typename FormClass>
  void PrintForms(std::function<std::unique_ptr<Printer>(FormClass&, std::ostream& out)> make) {
    make_printer_ = [this, make = std::move(make)](Form& form) -> std::unique_ptr<Printer> {
      auto* wanted = dynamic_cast<FormClass*>(&form);
      return wanted ? make(*wanted, out_) : nullptr;
    };
  }

 protected:
  void Use(Form& form) override;
  Answer AnswerTo(const Message& message) override;
  std::optional<Text> TextFor(const Text& title, const Text& prompt) override;
  std::unique_ptr<FormPeer> PeerFor(Form& form) override;

  /// Puts a message box on the terminal, after the lines that came before it.
  void Print(const Message& message);

 private:
  std::istream& in_;
  std::ostream& out_;
  std::ostream& err_;
  Answers answers_;
  std::vector<std::function<bool(Form&)>> users_;
  std::function<std::unique_ptr<Printer>(Form&)> make_printer_;
  std::vector<Printer*> printers_;  // of the open forms that are printed
};

}  // namespace kestrune::standins
