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
  Connect([&](frmConnect& form) {
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
  EXPECT_EQ(desktop.HelpShown(), std::vector<int>{5740});
}

TEST_F(ConnectTest, EveryWayToChooseOrNot) {
  using Form = frmConnect;
  const auto type = [this](Form& form, std::optional<Text> path) {
    desktop.OnInput(std::move(path));
    form.cmdManual.Press();
  };
  const struct {
    std::function<void(Form&)> user;
    Text chosen;
  } cases[] = {
      {[](Form& form) { form.lstModules.ClickItem(1), form.cmdOK.Press(); }, u"/P/B"},
      {[](Form& form) { form.lstModules.DoubleClickItem(1); }, u"/P/B"},
      {[](Form& form) { form.cmdCancel.Press(); }, u""},
      {[](Form& form) { form.CloseByUser(); }, u""},
      {[&](Form& form) { type(form, u" /Q/Z "); }, u" /Q/Z "},
      {[&](Form& form) { type(form, u""), type(form, std::nullopt), form.cmdOK.Press(); }, u"/P/A"},
  };
  for (const auto& each : cases) {
    const Text chosen = Connect([&](Form& form) {
      desktop.Tick();
      each.user(form);
    });
    EXPECT_EQ(chosen, each.chosen) << &each - cases;
  }
}

TEST_F(ConnectTest, TheRefreshRestsWhileAPathIsTyped) {
  Connect([&](frmConnect& form) {
    desktop.Tick();
    desktop.OnInput(std::nullopt);  // timers tick meanwhile
    form.cmdManual.Press();
    EXPECT_EQ(application->scripts.size(), 1u);
    desktop.Tick();
    EXPECT_EQ(application->scripts.size(), 2u);
    form.cmdCancel.Press();
  });
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

TEST_F(LostConnectionTest, IsToldOnceAndTheListCanStillBeUsed) {
  const Text chosen = Connect([&](frmConnect& form) {
    desktop.Tick();
    form.lstModules.ClickItem(1);
    Die();
    ExpectToldOnce();
    for (int tick = 0; tick < 5; ++tick) desktop.Tick();
    EXPECT_EQ(application->scripts.size(), 2u) << "what is dead is not asked again";
    EXPECT_EQ(form.lstModules.Items().size(), 2u);
    form.cmdOK.Press();
  });
  EXPECT_EQ(chosen, u"/P/B");
}

TEST_F(LostConnectionTest, TheRefreshGoesOnWhenDoorsIsBack) {
  Connect([&](frmConnect& form) {
    desktop.Tick();
    form.lstModules.ClickItem(1);
    for (int death = 0; death < 2; ++death) {
      Die();
      ExpectToldOnce();
      desktop.Tick();
      Restart();
      desktop.Tick();
      EXPECT_EQ(form.lstModules.Items(), (std::vector<Text>{u"/P/B", u"/P/C"}));
    }
    form.cmdCancel.Press();
  });
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
