#include "standins/play/Player.h"

#include <algorithm>

namespace kestrune::play {

namespace {

constexpr int kLongestWait = 600;  // intervals

/// Statements that are taken by what has come, and what that is.
constexpr std::pair<TextView, TextView> kArrivals[] = {
    {u"form", u"form has opened"}, {u"answer", u"message box has come"}, {u"input", u"input box has come"}};

std::optional<Answer> ButtonOf(const Message& message, const Text& caption) {
  const bool asks = message.Buttons == Buttons::kYesNo;
  if (asks && caption == u"Yes") return Answer::kYes;
  if (asks && caption == u"No") return Answer::kNo;
  if (!asks && caption == u"OK") return Answer::kOk;
  return std::nullopt;
}

}  // namespace

void Player::Play() {
  while (Upcoming()) Perform(nullptr, Take());
}

void Player::Use(Dialog& dialog) {
  const Text came = dialog.Name() + u" (" + Quoted(dialog.Caption()) + u") opened";
  const Statement& expected = TakeFor(u"form", came);
  if (expected.names[0] != dialog.Name()) Fail(expected, came);
  while (dialog.IsOpen()) {
    if (!Upcoming()) Fail(script_.statements.back(), u"the script ends while " + dialog.Name() + u" is open");
    Perform(&dialog, Take());
  }
}

Answer Player::Decide(const Message& message) {
  const Text came = u"the message box " + Quoted(message.Body) + u" came";
  const Statement& expected = TakeFor(u"answer", came);
  if (!Matches(message.Body, expected.texts[0])) Fail(expected, came);
  const auto answer = ButtonOf(message, expected.names[0]);
  if (!answer) Fail(expected, u"the message box has no button " + expected.names[0]);
  return *answer;
}

std::optional<Text> Player::Enter(const Text& title) {
  const Statement& expected = TakeFor(u"input", u"the input box " + Quoted(title) + u" came");
  if (expected.texts.empty()) return std::nullopt;
  return expected.texts[0];
}

const Statement* Player::Upcoming() const {
  return taken_ < script_.statements.size() ? &script_.statements[taken_] : nullptr;
}

const Statement& Player::Take() {
  return script_.statements.at(taken_++);
}

const Statement& Player::TakeFor(TextView verb, TextView what_came) {
  if (!Upcoming() || Upcoming()->verb != verb)
    Fail(script_.statements.at(taken_ - 1), Text(what_came) + u", which the script does not expect");
  return Take();
}

const Command* Player::FindCommand(const Text& verb) const {
  const auto found = std::find_if(commands_.begin(), commands_.end(), [&](const Command& each) {
    return Split(each.form, u" ").front() == verb;
  });
  return found == commands_.end() ? nullptr : &*found;
}

void Player::Perform(Dialog* dialog, const Statement& statement) {
  try {
    CarryOut(dialog, statement);
  } catch (const Refusal& refusal) {
    Fail(statement, FromUtf8(refusal.what()));
  }
}

void Player::CarryOut(Dialog* dialog, const Statement& statement) {
  for (const auto& [verb, arrival] : kArrivals)
    if (statement.verb == verb) Fail(statement, u"no " + Text(arrival));
  if (statement.verb == u"expect") return Expect(dialog, statement);
  if (statement.verb == u"clipboard") return desktop_.SetClipboardText(WidenLineFeeds(statement.texts[0]));
  if (const Command* command = FindCommand(statement.verb)) {
    if (dialog && !command->during_dialogs) Fail(statement, dialog->Name() + u" is still open");
    return Run(*command, statement);
  }
  if (!dialog) Fail(statement, u"no form is open");
  if (statement.verb == u"wait") return WaitIn(*dialog, statement);
  dialog->Do(statement);
}

void Player::Run(const Command& command, const Statement& statement) const {
  try {
    command.run(statement);
  } catch (const ScriptError&) {
    throw;
  } catch (const std::exception& failure) {
    // It may have come from a dialog: what was done last brought it about.
    Fail(script_.statements.at(taken_ - 1), FromUtf8(failure.what()));
  }
}

void Player::WaitIn(Dialog& dialog, const Statement& statement) const {
  if (statement.names.empty()) return dialog.Wait();
  const bool until_closed = statement.names.size() == 2 && statement.texts.empty();
  for (int intervals = 0; intervals < kLongestWait; ++intervals) {
    if (until_closed && !dialog.IsOpen()) return;
    if (!dialog.IsOpen()) Fail(statement, dialog.Name() + u" has closed meanwhile");
    if (!until_closed && !Instead(&dialog, ConditionIn(statement, 1))) return;
    dialog.Wait();
  }
  Fail(statement, u"not in " + ToText(kLongestWait) + u" intervals");
}

void Player::Expect(const Dialog* dialog, const Statement& statement) const {
  const Condition condition = ConditionIn(statement, 0);
  if (const auto instead = Instead(dialog, condition)) Fail(statement, condition.subject + u" " + *instead);
}

std::optional<Text> Player::Instead(const Dialog* dialog, const Condition& condition) const {
  return Unmet(condition, Look(dialog, condition.subject));
}

ControlState Player::Look(const Dialog* dialog, const Text& subject) const {
  if (subject == u"clipboard") return {.content = desktop_.ClipboardText()};
  if (!dialog) throw Refusal(u"no form is open");
  if (subject == u"caption") return {.content = dialog->Caption()};
  return dialog->Look(subject);
}

void Player::Fail(const Statement& at, TextView what) const {
  throw ScriptError(script_.file, at.line, at.source, what);
}

}  // namespace kestrune::play
