#include "tests/support/TestPlatform.h"

namespace kestrune {
namespace {

class SampleForm : public Form {
 public:
  SampleForm() { SetCaption(u"Sample"); }
  Button cmdOK{this, u"cmdOK"};
  ListBox List1{this, u"List1"};
  ListView lvRows{this, u"lvRows"};
  Timer Timer1{this, u"Timer1"};
};

struct FormsTest : ::testing::Test {
  std::vector<std::string> failures;
  standins::ScriptedDesktop desktop{[this](const std::string& what) { failures.push_back(what); }};
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

TEST(ListTest, SelectionGoesWithItsLine) {
  SampleForm form;
  for (const char16_t* line : {u"a", u"b", u"c"}) form.List1.AddItem(line);
  form.List1.SetListIndex(2);
  EXPECT_EQ(form.List1.SelectedText(), u"c");
  form.List1.Truncate(2);
  EXPECT_EQ(form.List1.ListIndex(), -1);
  EXPECT_EQ(form.List1.SelectedText(), u"");
  form.lvRows.SetRows({{u"a"}, {u"b"}});
  form.lvRows.SetSelection({1});
  form.lvRows.SetRows({{u"c"}, {u"d"}});
  EXPECT_TRUE(form.lvRows.SelectedRows().empty());
}

}  // namespace
}  // namespace kestrune
