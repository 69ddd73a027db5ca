#include "standins/play/PlayDesktop.h"

#include "standins/play/FormDialog.h"

namespace kestrune::play {

PlayDesktop::PlayDesktop(std::istream& in, std::ostream& out, std::ostream& err)
    : standins::ConsoleDesktop(in, out, err) {
  UseForm<Form>([this](Form& form) {
    FormDialog dialog(form, *this);
    if (player_) player_->Use(dialog);
  });
}

void PlayDesktop::Play(Script script, std::vector<Command> commands) {
  player_.emplace(std::move(script), std::move(commands), *this);
  player_->Play();
  player_.reset();
}

Answer PlayDesktop::AnswerTo(const Message& message) {
  if (!player_) return standins::ConsoleDesktop::AnswerTo(message);
  Print(message);
  return player_->Decide(message);
}

std::optional<Text> PlayDesktop::TextFor(const Text& title, const Text& prompt) {
  return player_ ? player_->Enter(title) : standins::ConsoleDesktop::TextFor(title, prompt);
}

}  // namespace kestrune::play
