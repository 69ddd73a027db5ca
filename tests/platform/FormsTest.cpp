#include <sstream>

#include "platform/headless/ConsoleDesktop.h"
#include "tests/support/TestPlatform.h"

namespace kestrune {
namespace {

class SampleForm : public Form {
 public:
  SampleForm() { SetCaption(u"Sample"); }
  Button cmdOK{this, u"cmdOK"};
  ListBox List1{this, u"List1"};
  Timer Timer1{this, u"Timer1"};
};

struct FormsTest : ::testing::Test {
  std::vector<std::string> failures;
  ScriptedDesktop desktop{[this](const std::string& what) { failures.push_back(what); }};
};

TEST_F(FormsTest, ATimerDoesNotRunOverItsOwnBusyHandler) {
  SampleForm form;
  int entered = 0;
  int deepest = 0;
  int depth = 0;
  form.Timer1.Tick = [&] {
    ++entered;
    deepest = std::max(deepest, ++depth);
    desktop.Show({.Body = u"busy"});  // a message box lets the timers tick
    desktop.PumpMessages();
    --depth;
  };
  desktop.OnForm<SampleForm>([&](SampleForm& opened) {
    desktop.OnMessage(u"busy");
    desktop.Tick();
    desktop.OnMessage(u"busy");
    desktop.Tick();
    opened.Close();
  });
  desktop.ShowModal(form);
  EXPECT_EQ(entered, 2);
  EXPECT_EQ(deepest, 1);
  EXPECT_TRUE(failures.empty());
}

TEST_F(FormsTest, ATimerTicksAgainAfterItsHandlerHasFailed) {
  SampleForm form;
  int entered = 0;
  form.Timer1.Tick = [&] {
    if (++entered == 1) throw AutomationError(error::kBase, u"test", u"once");
  };
  desktop.OnForm<SampleForm>([&](SampleForm& opened) {
    EXPECT_THROW(desktop.Tick(), AutomationError);
    desktop.Tick();
    opened.Close();
  });
  desktop.ShowModal(form);
  EXPECT_EQ(entered, 2);
}

TEST_F(FormsTest, AUserCannotReachWhatIsDisabledHiddenOrNotThere) {
  SampleForm form;
  EXPECT_THROW(form.cmdOK.Press(), std::logic_error) << "the form is not open";
  desktop.OnForm<SampleForm>([](SampleForm& opened) {
    EXPECT_THROW(opened.List1.ClickItem(0), std::logic_error);
    opened.cmdOK.SetEnabled(false);
    EXPECT_THROW(opened.cmdOK.Press(), std::logic_error);
    opened.cmdOK.SetEnabled(true);
    opened.cmdOK.SetVisible(false);
    EXPECT_THROW(opened.cmdOK.Press(), std::logic_error);
    opened.CloseByUser();
  });
  desktop.ShowModal(form);
  EXPECT_TRUE(failures.empty());
}

TEST_F(FormsTest, WhatDepartsFromTheScriptFails) {
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

TEST(ListBoxTest, SelectionGoesWithItsLine) {
  SampleForm form;
  for (const char16_t* line : {u"a", u"b", u"c"}) form.List1.AddItem(line);
  form.List1.SetListIndex(2);
  EXPECT_EQ(form.List1.SelectedText(), u"c");
  form.List1.Truncate(2);
  EXPECT_EQ(form.List1.ListIndex(), -1);
  EXPECT_EQ(form.List1.SelectedText(), u"");
}

TEST(ConsoleDesktopTest, PrintsAGroupOfChangesAsTheWindowShowsIt) {
  std::istringstream in;
  std::ostringstream out, err;
  ConsoleDesktop desktop(in, out, err, std::nullopt);
  desktop.PrintLinesOf(u"List1");
  SampleForm form;
  desktop.UseForm<SampleForm>([&](SampleForm& opened) {
    const auto add = [&](const char16_t* line) {
      opened.List1.AddItem(line);
      opened.List1.Repaint();
    };
    add(u"Comparing...");
    add(u"   A: ... first");
    EXPECT_EQ(out.str(), "Comparing...\n");
    opened.List1.AddItem(u"    ... first");
    opened.List1.SetItem(1, u"   A:");
    add(u"    ... second");
    add(u"done");
    opened.Close();
  });
  desktop.ShowModal(form);
  EXPECT_EQ(out.str(), "Comparing...\n   A:\n    ... first\n    ... second\ndone\n");
}

TEST(ConsoleDesktopTest, AsksWhereNoAnswerIsFixed) {
  std::istringstream in("yes\nwhat?\n");
  std::ostringstream out, err;
  ConsoleDesktop desktop(in, out, err, std::nullopt);
  const Message question{.Body = u"Sure?", .Title = u"Kestrune Link", .Buttons = Buttons::kYesNo};
  EXPECT_EQ(desktop.Show(question), Answer::kYes);
  EXPECT_EQ(desktop.Show(question), Answer::kNo);
  EXPECT_EQ(desktop.Show(question), Answer::kNo) << "the input has ended";
  EXPECT_EQ(err.str().substr(0, 22), "[Kestrune Link] Sure?\n");
}

}  // namespace
}  // namespace kestrune
