#include "standins/desktop/ConsoleDesktop.h"

#include <algorithm>
#include <iostream>

namespace kestrune::standins {

std::string ForTerminal(TextView text) {
  std::string utf8 = ToUtf8(text);
  std::erase(utf8, '\r');
  return utf8;
}

std::unique_ptr<FormPeer> ConsoleDesktop::PeerFor(Form& form) {
  auto printer = make_printer_ ? make_printer_(form) : nullptr;
  if (!printer) return nullptr;
  printers_.push_back(printer.get());
  printer->all_ = &printers_;
  return printer;
}

void ConsoleDesktop::Use(Form& form) {
  const bool was_used =
      std::any_of(users_.rbegin(), users_.rend(), [&](const auto& use) { return use(form); });
  if (!was_used) err_ << "[" << ToUtf8(form.Caption) << "] (closed: there is nobody to use it)\n";
}

void ConsoleDesktop::Print(const Message& message) {
  for (Printer* printer : printers_) printer->Flush();
  err_ << "[" << ForTerminal(message.Title) << "] " << ForTerminal(message.Body) << std::endl;
}

Answer ConsoleDesktop::AnswerTo(const Message& message) {
  Print(message);
  if (message.Buttons == Buttons::kOk) return Answer::kOk;
  if (answers_)
    if (const auto answer = answers_(message)) return *answer;
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

}  // namespace kestrune::standins
