#include "standins/stage/Stage.h"

#include "platform/Files.h"
#include "standins/stage/PrintTree.h"

namespace kestrune::standins {

namespace {

constexpr const char16_t* kHostTitle = u"Orim Studio";

}  // namespace

std::vector<play::Command> Stage::Commands() {
  using play::Statement;
  return {
      {u"new TEXT", [this](const Statement& line) { host_.Model().AddPackage(0, line.texts[0]); }},
      {u"package TEXT", [this](const Statement& line) { host_.SelectPackage(line.texts[0]); }},
      {u"connect", AtHost([this](const Statement&) { host_.Connect(); })},
      {u"disconnect", AtHost([this](const Statement&) { host_.Disconnect(); })},
      {u"click TEXT", AtHost([this](const Statement& line) { host_.ClickMenu(line.texts[0]); })},
      {u"lock", [this](const Statement&) { host_.SetLocked(true); }},
      {u"unlock", [this](const Statement&) { host_.SetLocked(false); }},
      {u"tree", [this](const Statement&) { PrintTree(host_.Model(), out_); }},
      {u"doors gone|starting|login|password|ready",
       [this](const Statement& line) { colleagues_.SetPhase(DoorsPhaseNamed(line.names[0])); }, true},
      {u"load TEXT TEXT",
       [this](const Statement& line) {
         colleagues_.Load(FromPath(folder_ / ToPath(line.texts[0])), line.texts[1]);
       },
       true},
      {u"view TEXT TEXT TEXT TEXT",
       [this](const Statement& line) {
         colleagues_.AddView(line.texts[0], line.texts[1], line.texts[2], line.texts[3]);
       },
       true},
  };
}

/// What an add-in does not catch, its host shows.
Stage::Action Stage::AtHost(Action action) {
  return [this, action = std::move(action)](const play::Statement& line) {
    try {
      action(line);
    } catch (const AutomationError& failure) {
      desktop_.Show({.Body = failure.Description, .Title = kHostTitle, .Icon = Icon::kStop});
    }
  };
}

play::Script ReadScript(const Text& file, const std::vector<play::Command>& commands) {
  std::vector<Text> forms;
  for (const play::Command& command : commands) forms.push_back(command.form);
  return play::ParseScript(file, FromUtf8(ReadFile(file)), forms);
}

}  // namespace kestrune::standins
