#include "common/Resources.h"
#include "doors/frmConnect.h"
#include "tests/doors/DoorsFixture.h"

namespace kestrune {
namespace {

using testing::DoorsFixture;
using testing::kMainWindow;

struct ConnectTest : DoorsFixture {
  ConnectTest() { OpenMainWindow(); }
  Text Connect(const std::function<void(frmConnect&)>& user) {
    desktop.OnForm<frmConnect>(user);
    return frmConnect(doors).ShowIt();
  }
  void List(Text answer) {
    application->answer_instead = std::move(answer);
    desktop.Tick();
  }
};

TEST_F(ConnectTest, ListsModulesAndFollowsTheirChanges) {
  const Text chosen = Connect([&](frmConnect& form) {
    EXPECT_FALSE(form.cmdOK.Enabled()) << "nothing is listed yet";
    List(u"/P/A\n  \n/P/B \n\n/P/C\n");
    EXPECT_EQ(form.lstModules.Items(), (std::vector<Text>{u"/P/A", u"/P/B", u"/P/C"}));
    EXPECT_EQ(form.lstModules.SelectedText(), u"/P/A") << "the first one, at the first filling";
    form.lstModules.ClickItem(2);
    List(u"/P/A\n/P/B\n/P/C\n/P/D\n");
    EXPECT_EQ(form.lstModules.ListIndex(), 2) << "an unchanged list keeps the user's selection";
    List(u"/P/A\n/P/C\n");
    EXPECT_EQ(form.lstModules.Items(), (std::vector<Text>{u"/P/A", u"/P/C"}));
    EXPECT_EQ(form.lstModules.SelectedText(), u"/P/C") << "the selection follows the module";
    List(u"/P/0\n/P/A\n/P/C\n");
    EXPECT_EQ(form.lstModules.SelectedText(), u"/P/C");
    for (const TextView without : {u"/P/0\n/P/A\n/P/D\n", u"", u"/P/0\n/P/C\n"}) {
      List(Text(without));
      EXPECT_EQ(form.lstModules.SelectedText(), u"") << "gone is gone: OK must not mean another";
      EXPECT_FALSE(form.cmdOK.Enabled());
    }
    form.lstModules.ClickItem(0);
    EXPECT_TRUE(form.cmdOK.Enabled());
    form.cmdHelp.Press();
    form.cmdCancel.Press();
  });
  EXPECT_EQ(chosen, u"") << "Cancel chooses nothing";
  EXPECT_EQ(desktop.HelpShown(), std::vector<int>{5740});
}

TEST_F(ConnectTest, TheRefreshRestsWhileAPathIsTyped) {
  const Text chosen = Connect([&](frmConnect& form) {
    desktop.Tick();
    desktop.OnInput(std::nullopt);  // timers tick meanwhile
    form.cmdManual.Press();
    EXPECT_EQ(application->scripts.size(), 1u);
    desktop.Tick();
    EXPECT_EQ(application->scripts.size(), 2u);
    form.CloseByUser();
  });
  EXPECT_EQ(chosen, u"") << "nor does the close box";
}

TEST_F(ConnectTest, ARefreshIsNotEnteredAgainWhileDoorsLetsMessagesRun) {
  int depth = 0;
  Connect([&](frmConnect& form) {
    application->while_running = [&] {
      EXPECT_EQ(++depth, 1);
      desktop.Tick();
      desktop.PumpMessages();
      --depth;
    };
    desktop.Tick();
    desktop.Tick();
    EXPECT_EQ(application->scripts.size(), 2u);
    EXPECT_EQ(form.lstModules.Items().size(), 2u);
    form.cmdCancel.Press();
  });
}

TEST_F(ConnectTest, TheUserCanCloseItWhileARefreshRuns) {
  const Text chosen = Connect([&](frmConnect& form) {
    application->while_running = [&] { form.cmdCancel.Press(); };
    desktop.Tick();
    EXPECT_FALSE(form.IsOpen());
    desktop.Tick();
    EXPECT_EQ(application->scripts.size(), 1u);
  });
  EXPECT_EQ(chosen, u"");
}

struct LostConnectionTest : ConnectTest {
  /// DOORS dies: what is asked of it fails, and its window is gone.
  void Die() {
    application->failure = AutomationError(0x800706BA, u"DOORS", u"its process is gone");
    desktop.WindowAt(1).class_name = u"";
  }
  /// Another DOORS comes up.
  void Restart() {
    StartDoors(u"/P/B\n/P/C\n");
    desktop.WindowAt(1) = {u"DOORSWindow", kMainWindow};
  }
  void ExpectToldOnce() { desktop.OnMessage(FormatResText(text::kDoorsFailure)); }
};

TEST_F(LostConnectionTest, IsToldOnceAndTheRefreshGoesOnWhenDoorsIsBack) {
  const Text chosen = Connect([&](frmConnect& form) {
    desktop.Tick();
    form.lstModules.ClickItem(1);
    for (int death = 0; death < 2; ++death) {
      Die();
      ExpectToldOnce();
      for (int tick = 0; tick < 5; ++tick) desktop.Tick();
      EXPECT_EQ(application->scripts.size(), 2u) << "what is dead is not asked again";
      Restart();
      desktop.Tick();
      EXPECT_EQ(form.lstModules.Items(), (std::vector<Text>{u"/P/B", u"/P/C"}));
    }
    Die();
    ExpectToldOnce();
    desktop.Tick();
    EXPECT_EQ(form.lstModules.Items().size(), 2u);
    form.cmdOK.Press();
  });
  EXPECT_EQ(chosen, u"/P/B") << "the list can still be used";
}

TEST_F(LostConnectionTest, ADoorsThatStaysReadyAndFailsEachTimeIsToldOnce) {
  Connect([&](frmConnect& form) {
    application->failure = AutomationError(0x80010001, u"DOORS", u"Call was rejected by callee.");
    desktop.OnMessage(u"Call was rejected by callee.");
    for (int tick = 0; tick < 5; ++tick) desktop.Tick();
    EXPECT_EQ(application->scripts.size(), 5u) << "it may be free again at any time";
    objects.objects.clear();
    desktop.Tick();
    EXPECT_EQ(application->scripts.size(), 5u) << "and it may be impossible to get hold of it";
    objects.objects[u"Doors.Application"] = application->AsObject();
    application->failure.reset();
    desktop.Tick();
    EXPECT_EQ(form.lstModules.SelectedText(), u"/P/A");
    form.cmdCancel.Press();
  });
}

TEST_F(LostConnectionTest, TheMessageBoxItselfBringsNoMore) {
  Connect([&](frmConnect& form) {
    desktop.Tick();
    Die();
    desktop.OnMessage([&](const Message&) {
      desktop.Tick();
      desktop.Tick();
      return Answer::kOk;
    });
    desktop.Tick();
    desktop.OnInput(u"/P/Typed");
    form.cmdManual.Press();
  });
}

}  // namespace
}  // namespace kestrune
