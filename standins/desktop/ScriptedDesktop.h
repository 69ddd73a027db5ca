// A desktop whose user follows a script written beforehand, for a modal form blocks its caller: the forms,
// message boxes and input boxes that must come, in their order, and what the user does with each. What comes
// unexpected fails at once, what never comes fails at the end.
#pragma once

#include <deque>

#include "standins/desktop/HeadlessDesktop.h"

namespace kestrune::standins {

class ScriptedDesktop : public HeadlessDesktop {
 public:
  /// `fail` is told, in words, of everything that departs from the script.
  explicit ScriptedDesktop(std::function<void(const std::string&)> fail) : fail_(std::move(fail)) {}
  ~ScriptedDesktop() override { ExpectNothingLeft(); }

  /// Next comes a form of this class; the user does this with it, which must close it.
  template <typename FormClass>
  void OnForm(std::function<void(FormClass&)> user) {
    script_.push_back({Kind::kForm, [this, user](Form* form, const Message*) {
                         if (auto* expected = dynamic_cast<FormClass*>(form))
                           user(*expected);
                         else
                           Fail("another form was expected than", form->Caption);
                         return Answer::kOk;
                       }});
  }

  /// Next comes a message box with exactly this text; the user answers.
  void OnMessage(Text body, Answer answer = Answer::kOk);
  /// Next comes a message box; `check` looks at it and gives the answer.
  void OnMessage(std::function<Answer(const Message&)> check);
  /// Next comes an input box; the user enters this, or cancels it with nothing.
  void OnInput(std::optional<Text> entry);

  /// Fails when something of the script has not come, and forgets it.
  void ExpectNothingLeft();

 protected:
  void Use(Form& form) override;
  Answer AnswerTo(const Message& message) override;
  std::optional<Text> TextFor(const Text& title, const Text& prompt) override;

 private:
  enum class Kind { kForm, kMessage, kInput };
  struct Step {
    Kind what;
    std::function<Answer(Form*, const Message*)> act;
    std::optional<Text> entry;
  };

  /// Takes the next step if it is of this kind; otherwise fails, naming what came.
  std::optional<Step> Next(Kind kind, TextView what_came);
  void Fail(const std::string& what, const Text& which) const { fail_(what + ": \"" + ToUtf8(which) + "\""); }

  std::function<void(const std::string&)> fail_;
  std::deque<Step> script_;
};

}  // namespace kestrune::standins
