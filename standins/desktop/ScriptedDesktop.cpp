#include "standins/desktop/ScriptedDesktop.h"

namespace kestrune::standins {

void ScriptedDesktop::OnMessage(Text body, Answer answer) {
  OnMessage([this, body = std::move(body), answer](const Message& message) {
    if (message.Body != body) Fail("expected the message \"" + ToUtf8(body) + "\" but got", message.Body);
    return answer;
  });
}

void ScriptedDesktop::OnMessage(std::function<Answer(const Message&)> check) {
  script_.push_back({Kind::kMessage,
                     [check = std::move(check)](Form*, const Message* message) { return check(*message); }});
}

void ScriptedDesktop::OnInput(std::optional<Text> entry) {
  script_.push_back({Kind::kInput, {}, std::move(entry)});
}

void ScriptedDesktop::ExpectNothingLeft() {
  static constexpr const char* kWords[] = {"form", "message box", "input box"};
  for (const Step& step : script_)
    fail_(std::string("a ") + kWords[static_cast<int>(step.what)] + " was expected and never came");
  script_.clear();
}

void ScriptedDesktop::Use(Form& form) {
  if (auto step = Next(Kind::kForm, form.Caption)) {
    step->act(&form, nullptr);
    if (form.IsOpen()) Fail("the user left a form open", form.Caption);
  }
}

Answer ScriptedDesktop::AnswerTo(const Message& message) {
  auto step = Next(Kind::kMessage, message.Body);
  if (!step) return message.Buttons == Buttons::kYesNo ? Answer::kNo : Answer::kOk;
  return step->act(nullptr, &message);
}

std::optional<Text> ScriptedDesktop::TextFor(const Text& title, const Text&) {
  auto step = Next(Kind::kInput, title);
  return step ? step->entry : std::nullopt;
}

std::optional<ScriptedDesktop::Step> ScriptedDesktop::Next(Kind kind, TextView what_came) {
  if (script_.empty() || script_.front().what != kind) {
    Fail("not expected", Text(what_came));
    return std::nullopt;
  }
  Step step = std::move(script_.front());
  script_.pop_front();
  return step;
}

}  // namespace kestrune::standins
