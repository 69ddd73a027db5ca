// A desktop whose user takes things as they come: whatever number of dialogs and message boxes a run brings,
// each is served as its kind says, and the test looks at what came afterwards.
#pragma once

#include <gtest/gtest.h>

#include "standins/desktop/HeadlessDesktop.h"

namespace kestrune::testing {

class Attendant : public standins::HeadlessDesktop {
 public:
  /// Forms of this class are used by `use` from now on, which
  /// must close them. A form that has no user fails the test.
  template <typename FormClass>
  void UseForm(std::function<void(FormClass&)> use) {
    users_.insert(users_.begin(), [use = std::move(use)](Form& form) {
      auto* wanted = dynamic_cast<FormClass*>(&form);
      if (wanted) use(*wanted);
      return wanted != nullptr;
    });
  }

  /// The message boxes since the last call, in their order.
  std::vector<Message> TakeMessages() { return std::exchange(messages_, {}); }

  Answer answer_to_questions = Answer::kNo;
  std::optional<Text> entry;  // for input boxes

 protected:
  void Use(Form& form) override {
    for (const auto& user : users_) {
      if (!user(form)) continue;
      EXPECT_FALSE(form.IsOpen()) << "the user could not close \"" << ToUtf8(form.Caption) << "\"";
      return;
    }
    ADD_FAILURE() << "nobody uses the form \"" << ToUtf8(form.Caption) << "\"";
  }
  Answer AnswerTo(const Message& message) override {
    messages_.push_back(message);
    return message.Buttons == Buttons::kYesNo ? answer_to_questions : Answer::kOk;
  }
  std::optional<Text> TextFor(const Text&, const Text&) override { return entry; }

 private:
  std::vector<std::function<bool(Form&)>> users_;  // the latest first
  std::vector<Message> messages_;
};

}  // namespace kestrune::testing
