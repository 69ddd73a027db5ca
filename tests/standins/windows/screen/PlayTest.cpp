// What departs from the script is told of windows in the same words as of a form.
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>
#include <thread>

#include "standins/windows/screen/ScreenUser.h"
#include "tests/standins/play/SamplePlays.h"

namespace kestrune::standins {
namespace {

using play::Command;
using play::Statement;

const DialogNames kSampleNames = {{{u"cmdAsk", u"frmSample"}}, {{u"mnu", {u"mnuCut"}}}};

class ScreenTest : public ::testing::Test {
 protected:
  /// What went wrong; "" when the script was played to its end.
  std::string Play(const Text& source) {
    ScreenUser user(out_, err_, {.names = kSampleNames});
    auto commands = play::SampleCommands(desktop_, completed_);
    for (const Command& command : more_commands_) commands.push_back(command);
    std::vector<Text> forms;
    for (const Command& command : commands) forms.push_back(command.form);
    try {
      user.Play(play::ParseScript(u"x", source, forms), commands);
    } catch (const play::ScriptError& error) {
      return error.what();
    }
    return "";
  }

  Win32Desktop desktop_;
  std::vector<Command> more_commands_;
  std::ostringstream out_, err_;
  bool completed_ = false;
};

TEST_F(ScreenTest, TheFirstDepartureFromTheScriptEndsThePlay) {
  for (const play::Departure& each : play::kDepartures) {
    EXPECT_EQ(Play(u"open\n" + Text(each.script)), each.failure);
    EXPECT_TRUE(completed_) << "the dialogs have been closed";
    EXPECT_EQ(Play(u"open\nform frmSample\nclose"), "") << "nothing is left of it";
  }
}

TEST_F(ScreenTest, TimePassesOnlyWhereTheScriptLetsIt) {
  more_commands_ = {{u"pause",
                     [](const Statement&) { std::this_thread::sleep_for(std::chrono::milliseconds(100)); },
                     true}};
  EXPECT_EQ(Play(u"open\nform frmSample\nwait\nwait\npause\nexpect cmdLater disabled\nwait\n"
                 u"expect cmdLater enabled\nclose"),
            "");
}

TEST_F(ScreenTest, AStatementIsOverWhenAllThatItOpensHasClosed) {
  Text order;
  more_commands_ = {{u"note TEXT", [&](const Statement& line) { order += line.texts[0]; }, true}};
  EXPECT_EQ(Play(u"open\nform frmSample\nnote \"1\"\npress cmdInner\nform frmSample\nnote \"2\"\n"
                 u"press cmdAsk\nanswer Yes \"Sure...\"\nnote \"3\"\nclose\n"
                 u"expect lblAnswer \"back\"\nnote \"4\"\nclose\nnote \"5\""),
            "");
  EXPECT_EQ(order, u"12345");
}

TEST_F(ScreenTest, AnotherActionLeavesTheOpenMenu) {
  EXPECT_EQ(Play(u"open\nform frmSample\npress cmdMenu\nexpect lblAnswer \"\"\ntype txt \"x\"\n"
                 u"expect lblAnswer \"\"\npress cmdMenu\nmenu mnu mnuCut\nexpect lblAnswer \"cut\"\nclose"),
            "");
  EXPECT_EQ(Play(u"open\nform frmSample\npress cmdMenu\nmenu mnu mnuPaste"),
            "x:4: mnu has no item mnuPaste: menu mnu mnuPaste");
  EXPECT_TRUE(completed_);
}

TEST_F(ScreenTest, AFailureOfTheDialogIsToldAtTheStatementThatBroughtItAbout) {
  more_commands_ = {{u"fail", [this](const Statement&) {
                       play::frmSample form(desktop_);
                       form.cmdOK.Click = [] { throw std::runtime_error("out of paper"); };
                       desktop_.ShowModal(form);
                     }}};
  EXPECT_EQ(Play(u"fail\nform frmSample\npress cmdOK"), "x:3: out of paper: press cmdOK");
}

TEST_F(ScreenTest, AForeignDialogIsNotTakenForOneOfOurs) {
  const DialogNames other = {{{u"cmdOther", u"frmOther"}}, {}};
  ScreenUser user(out_, err_, {.names = other});
  try {
    user.Play(play::SampleScript(u"open\nform frmSample"), play::SampleCommands(desktop_, completed_));
    FAIL() << "it was";
  } catch (const play::ScriptError& error) {
    EXPECT_STREQ(error.what(), "x:2: a window (\"Sample\") opened: form frmSample");
  }
}

using ScreenDeathTest = ScreenTest;

TEST_F(ScreenDeathTest, WindowsThatDoNotAnswerEndTheProgramByName) {
  more_commands_ = {{u"hang", [this](const Statement&) {
                       play::frmSample form(desktop_);
                       form.cmdOK.Click = [] { std::this_thread::sleep_for(std::chrono::seconds(60)); };
                       desktop_.ShowModal(form);
                     }}};
  const auto play = [this] {
    ScreenUser user(std::cout, std::cerr, {.names = kSampleNames, .limit = std::chrono::seconds(3)});
    auto commands = play::SampleCommands(desktop_, completed_);
    commands.push_back(more_commands_[0]);
    user.Play(play::ParseScript(u"x", u"hang\nform frmSample\npress cmdOK", {u"hang"}), commands);
  };
  EXPECT_EXIT(play(), ::testing::ExitedWithCode(ScreenUser::kHangs),
              "The dialog \"Sample\" hangs. Open are: \\[Sample\\]");
}

}  // namespace
}  // namespace kestrune::standins
