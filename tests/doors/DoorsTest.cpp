#include "common/Resources.h"
#include "doors/Doors.h"
#include "doors/frmConnect.h"
#include "doors/frmConnectProgress.h"
#include "tests/support/TestPlatform.h"
#include "workbench/StandInObject.h"

namespace kestrune {
namespace {

using testing::TestPlatform;

/// DOORS as far as these dialogs see it: answers every script with the same text and remembers the
/// parameters.
class FakeDoors : public workbench::StandInObject<FakeDoors> {
 public:
  static constexpr const char16_t* kClassName = u"FakeDoors";
  static const Members& Table() {
    static const Members table = {
        {u"Result",
         {.Get = [](FakeDoors& self) { return Variant(self.Answer); },
          .Put = [](FakeDoors& self, const Variant& value) { self.Parameters.push_back(value.ToText()); }}},
        {u"RunStr",
         {.Call =
              [](FakeDoors& self, const Args& args) {
                self.Scripts.push_back(args[0].ToText());
                return Variant();
              },
          .ArgCount = 1}},
    };
    return table;
  }
  Text Answer;
  std::vector<Text> Parameters;
  std::vector<Text> Scripts;
};

constexpr std::uint32_t kMainWindow = 0x14CF0000;  // with WS_VISIBLE, which is outside of the mask

struct DoorsTest : ::testing::Test, TestPlatform {
  DoorsTest() { objects.objects[u"Doors.Application"] = application->AsObject(); }
  void OpenMainWindow() { desktop.AddWindow({u"DOORSWindow", kMainWindow}); }

  std::shared_ptr<FakeDoors> application = std::make_shared<FakeDoors>();
  Doors doors{platform};
};

TEST_F(DoorsTest, TheWindowTellsTheState) {
  const struct {
    const char* name;
    std::vector<SimulatedWindow> windows;
    DoorsState state;
    WindowHandle window;
  } cases[] = {
      {"no window at all", {}, DoorsState::kNotRunning, 0},
      {"windows of others",
       {{u"OtherWindow", 0x04CF0000}, {u"doorswindow", 0x04CF0000}},
       DoorsState::kNotRunning,
       0},
      {"start-up screen", {{u"DOORSWindow", 0x94000000}}, DoorsState::kStarting, 1},
      {"login dialog", {{u"DOORSWindow", 0x04C80000}}, DoorsState::kLogin, 1},
      {"hidden", {{u"DOORSWindow", 0x04CF0000, false}}, DoorsState::kPassword, 0},
      {"main window, with bits outside of the mask", {{u"DOORSWindow", 0x54CF00FF}}, DoorsState::kReady, 1},
      {"a scroll bar within the mask", {{u"DOORSWindow", 0x04EF0000}}, DoorsState::kNotRunning, 1},
      {"the last visible one decides",
       {{u"DOORSWindow", 0x04CF0000}, {u"DOORSWindow", 0x04C80000}, {u"DOORSWindow", 0x04CF0000, false}},
       DoorsState::kLogin,
       2},
  };
  for (const auto& each : cases) {
    TestPlatform machine;
    for (const auto& window : each.windows) machine.desktop.AddWindow(window);
    WindowHandle found = 99;
    EXPECT_EQ(frmConnectProgress(machine.platform).CurrentDoorsState(found), each.state) << each.name;
    EXPECT_EQ(found, each.window) << each.name;
  }
}

TEST_F(DoorsTest, NoDialogWhenDoorsIsReady) {
  OpenMainWindow();
  EXPECT_TRUE(doors.EnsureDoors());
  EXPECT_TRUE(doors.DoorsApp);
}

TEST_F(DoorsTest, WaitsThroughStartUpAndLogin) {
  desktop.OnForm<frmConnectProgress>([&](frmConnectProgress& form) {
    EXPECT_EQ(form.Caption, u"Connect to Doors");
    const auto expect_status = [&](const char16_t* status) {
      desktop.Tick();
      EXPECT_EQ(form.lblStatus.Caption(), status);
    };
    expect_status(u"Please open DOORS database");
    const WindowHandle window = desktop.AddWindow({u"DOORSWindow", 0x04000000});
    expect_status(u"Doors is initializing...");
    EXPECT_EQ(desktop.Foreground(), 0u);
    desktop.WindowAt(window).Style = 0x04C80000;
    expect_status(u"Waiting for you to login to Doors");
    EXPECT_EQ(desktop.Foreground(), window);
    desktop.BringToFront(0);
    desktop.Tick();
    EXPECT_EQ(desktop.Foreground(), window) << "kept in front for as long as it waits";
    desktop.WindowAt(window).Visible = false;
    expect_status(u"Doors confirming password...");
    desktop.WindowAt(window) = {u"DOORSWindow", kMainWindow};
    desktop.Tick();
    EXPECT_FALSE(form.IsOpen());
  });
  EXPECT_TRUE(doors.EnsureDoors());
}

TEST_F(DoorsTest, CancelLeavesNoConnectionEvenWhereThereWasOne) {
  OpenMainWindow();
  ASSERT_TRUE(doors.EnsureDoors());
  desktop.WindowAt(1).Visible = false;
  desktop.OnForm<frmConnectProgress>([](frmConnectProgress& form) { form.cmdCancel.Press(); });
  EXPECT_FALSE(doors.EnsureDoors());
  EXPECT_FALSE(doors.DoorsApp);
}

TEST_F(DoorsTest, AScriptWithoutParametersLeavesTheResultSlotAlone) {
  OpenMainWindow();
  ASSERT_TRUE(doors.EnsureDoors());
  application->Answer = u"answer";
  EXPECT_EQ(doors.RunScript(dxl_script::kListModules), u"answer");
  EXPECT_TRUE(application->Parameters.empty());
  EXPECT_EQ(doors.RunScript(dxl_script::kListViews, u"/P/M"), u"answer");
  EXPECT_EQ(application->Parameters, std::vector<Text>{u"/P/M"});
  EXPECT_EQ(application->Scripts[1], LoadDxl(102));
}

struct ConnectTest : DoorsTest {
  ConnectTest() { OpenMainWindow(); }
  Text Connect(const std::function<void(frmConnect&)>& user) {
    desktop.OnForm<frmConnect>(user);
    return frmConnect(doors).ShowIt();
  }
  void List(Text answer) {
    application->Answer = std::move(answer);
    desktop.Tick();
  }
};

TEST_F(ConnectTest, ListsModulesAndFollowsTheirChanges) {
  Connect([&](frmConnect& form) {
    List(u"/P/A\n  \n/P/B \n\n/P/C\n");
    EXPECT_EQ(form.lstModules.Items(), (std::vector<Text>{u"/P/A", u"/P/B", u"/P/C"}));
    EXPECT_EQ(form.lstModules.SelectedText(), u"/P/A") << "the first one, at the first filling";
    form.lstModules.ClickItem(2);
    List(u"/P/A\n/P/B\n/P/C\n/P/D\n");
    EXPECT_EQ(form.lstModules.ListIndex(), 2) << "an unchanged list keeps the user's selection";
    List(u"/P/A\n/P/C\n");
    EXPECT_EQ(form.lstModules.Items(), (std::vector<Text>{u"/P/A", u"/P/C"}));
    EXPECT_FALSE(form.cmdOK.Enabled()) << "the selected line is gone";
    List(u"");
    EXPECT_FALSE(form.cmdOK.Enabled());
    List(u"/P/E\n");
    EXPECT_TRUE(form.cmdOK.Enabled());
    form.cmdCancel.Press();
  });
}

TEST_F(ConnectTest, EveryWayToChooseOrNot) {
  const struct {
    const char* name;
    std::function<void(frmConnect&)> user;
    Text chosen;
  } cases[] = {
      {"OK",
       [](frmConnect& form) {
         form.lstModules.ClickItem(1);
         form.cmdOK.Press();
       },
       u"/P/B"},
      {"double click", [](frmConnect& form) { form.lstModules.DoubleClickItem(1); }, u"/P/B"},
      {"Cancel", [](frmConnect& form) { form.cmdCancel.Press(); }, u""},
      {"the close box", [](frmConnect& form) { form.CloseByUser(); }, u""},
      {"by hand, as typed",
       [this](frmConnect& form) {
         desktop.OnInput(u" /Q/Z ");
         form.cmdManual.Press();
       },
       u" /Q/Z "},
      {"by hand, empty, then OK",
       [this](frmConnect& form) {
         desktop.OnInput(u"");
         form.cmdManual.Press();
         desktop.OnInput(std::nullopt);
         form.cmdManual.Press();
         form.cmdOK.Press();
       },
       u"/P/A"},
  };
  application->Answer = u"/P/A\n/P/B\n";
  for (const auto& each : cases) {
    EXPECT_EQ(Connect([&](frmConnect& form) {
                desktop.Tick();
                each.user(form);
              }),
              each.chosen)
        << each.name;
  }
}

TEST_F(ConnectTest, HelpOpensTheDialogsOwnTopic) {
  Connect([](frmConnect& form) {
    form.cmdHelp.Press();
    form.cmdCancel.Press();
  });
  EXPECT_EQ(desktop.HelpShown(), std::vector<int>{5740});
}

}  // namespace
}  // namespace kestrune
