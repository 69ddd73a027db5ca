#include <sstream>

#include "standins/desktop/ConsoleDesktop.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::standins {
namespace {

struct SampleForm : Form {};

TEST(ScriptedDesktopTest, WhatDepartsFromTheScriptFails) {
  std::vector<std::string> failures;
  ScriptedDesktop desktop([&](const std::string& what) { failures.push_back(what); });
  SampleForm form;
  desktop.ShowModal(form);
  EXPECT_EQ(failures.size(), 1u) << "a form that nobody expects";
  desktop.Show({.Body = u"surprise"});
  EXPECT_EQ(failures.size(), 2u) << "a message that nobody expects";
  desktop.OnMessage(u"this");
  desktop.Show({.Body = u"that"});
  EXPECT_EQ(failures.size(), 3u) << "another text";
  desktop.OnForm<SampleForm>([](SampleForm&) {});
  desktop.ShowModal(form);
  EXPECT_EQ(failures.size(), 4u) << "a form left open";
  desktop.OnInput(u"text");
  desktop.ExpectNothingLeft();
  EXPECT_EQ(failures.size(), 5u) << "an input box that never comes";
}

TEST(ConsoleDesktopTest, AsksWhereNoAnswerIsFixed) {
  std::istringstream in("yes\nwhat?\n");
  std::ostringstream out, err;
  ConsoleDesktop desktop(in, out, err);
  const Message question{.Body = u"Sure?", .Title = u"Kestrune Link", .Buttons = Buttons::kYesNo};
  EXPECT_EQ(desktop.Show(question), Answer::kYes);
  EXPECT_EQ(desktop.Show(question), Answer::kNo);
  EXPECT_EQ(desktop.Show(question), Answer::kNo) << "the input has ended";
  EXPECT_EQ(err.str().substr(0, 22), "[Kestrune Link] Sure?\n");
}

}  // namespace
}  // namespace kestrune::standins
