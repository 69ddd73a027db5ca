#include "platform/headless/ConsoleDesktop.h"

#include <algorithm>
#include <iostream>

namespace kestrune {

std::string ForTerminal(TextView text) {
  std::string utf8 = ToUtf8(text);
  std::erase(utf8, '\r');
  return utf8;
}

/// Prints a list box line by line. The last line is held back until another one follows, and so are those
/// that only continue it: the head of a group of changes is rewritten when its second change comes.
class ConsoleDesktop::LinePrinter : public FormPeer {
 public:
  LinePrinter(const ListBox& list, std::ostream& out, std::vector<LinePrinter*>& all)
      : list_(list), out_(out), all_(all) {
    all_.push_back(this);
  }
  ~LinePrinter() override {
    Flush();
    std::erase(all_, this);
  }

  void FormChanged(Form&) override {}
  void SetFocus(Control&) override {}
  void PopUp(Menu&, Control&) override {}
  void ControlChanged(Control&) override {}
  void Repaint(Control& control) override {
    if (&control != &list_) return;
    const auto& lines = list_.Items();
    std::size_t settled = lines.size() - 1;
    while (settled > printed_ && lines[settled].starts_with(u"    ")) --settled;
    Print(settled);
  }
  void Flush() { Print(list_.Items().size()); }

 private:
  void Print(std::size_t end) {
    for (; printed_ < end; ++printed_) out_ << ForTerminal(list_.Items()[printed_]) << '\n';
    out_.flush();
  }

  const ListBox& list_;
  std::ostream& out_;
  std::vector<LinePrinter*>& all_;
  std::size_t printed_ = 0;
};

std::unique_ptr<FormPeer> ConsoleDesktop::PeerFor(Form& form) {
  const auto* list = dynamic_cast<ListBox*>(form.FindControl(printed_list_));
  if (!list) return nullptr;
  return std::make_unique<LinePrinter>(*list, out_, printers_);
}

void ConsoleDesktop::Use(Form& form) {
  const bool was_used =
      std::any_of(users_.rbegin(), users_.rend(), [&](const auto& use) { return use(form); });
  if (!was_used) err_ << "[" << ToUtf8(form.Caption) << "] (closed: there is nobody to use it)\n";
}

void ConsoleDesktop::Print(const Message& message) {
  for (LinePrinter* printer : printers_) printer->Flush();
  err_ << "[" << ForTerminal(message.Title) << "] " << ForTerminal(message.Body) << std::endl;
}

Answer ConsoleDesktop::AnswerTo(const Message& message) {
  Print(message);
  if (message.Buttons == Buttons::kOk) return Answer::kOk;
  if (fixed_answer_) return *fixed_answer_;
  while (const auto entry = TextFor(message.Title, u"Yes or No?")) {
    const Text word = AsciiLower(Trim(*entry));
    if (word == u"y" || word == u"yes") return Answer::kYes;
    if (word == u"n" || word == u"no") break;
  }
  return Answer::kNo;
}

std::optional<Text> ConsoleDesktop::TextFor(const Text&, const Text& prompt) {
  err_ << ToUtf8(prompt) << ' ' << std::flush;
  std::string line;
  if (!std::getline(in_, line)) return std::nullopt;
  return FromUtf8(line);
}

}  // namespace kestrune
