#include "common/Resources.h"
#include "doors/frmConnectProgress.h"
#include "tests/doors/DoorsFixture.h"

namespace kestrune {
namespace {

using testing::kMainWindow;
using testing::TestPlatform;
using DoorsTest = testing::DoorsFixture;

TEST_F(DoorsTest, TheWindowTellsTheState) {
  const standins::SimulatedWindow main{u"DOORSWindow", 0x04CF0000}, login{u"DOORSWindow", 0x04C80000},
      hidden{u"DOORSWindow", 0x04CF0000, false};
  const struct {
    std::vector<standins::SimulatedWindow> windows;
    DoorsState state;
    WindowHandle window;
  } cases[] = {
      {{}, DoorsState::kNotRunning, 0},
      {{{u"OtherWindow", 0x04CF0000}, {u"doorswindow", 0x04CF0000}}, DoorsState::kNotRunning, 0},
      {{{u"DOORSWindow", 0x94000000}}, DoorsState::kStarting, 1},
      {{login}, DoorsState::kLogin, 1},
      {{hidden}, DoorsState::kPassword, 0},
      {{{u"DOORSWindow", 0x54CF00FF}}, DoorsState::kReady, 1},       // bits outside of the mask
      {{{u"DOORSWindow", 0x04EF0000}}, DoorsState::kNotRunning, 1},  // a scroll bar, within the mask
      {{main, login, hidden}, DoorsState::kLogin, 2},                // the last visible one decides
  };
  for (const auto& each : cases) {
    TestPlatform machine;
    for (const auto& window : each.windows) machine.desktop.AddWindow(window);
    WindowHandle found = 99;
    EXPECT_EQ(frmConnectProgress(machine.platform).CurrentDoorsState(found), each.state);
    EXPECT_EQ(found, each.window);
  }
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
    desktop.WindowAt(window).style = 0x04C80000;
    expect_status(u"Waiting for you to login to Doors");
    EXPECT_EQ(desktop.Foreground(), window);
    desktop.BringToFront(0);
    desktop.Tick();
    EXPECT_EQ(desktop.Foreground(), window) << "kept in front for as long as it waits";
    desktop.WindowAt(window).visible = false;
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
  desktop.WindowAt(1).visible = false;
  desktop.OnForm<frmConnectProgress>([](frmConnectProgress& form) { form.cmdCancel.Press(); });
  EXPECT_FALSE(doors.EnsureDoors());
  EXPECT_FALSE(doors.DoorsApp);
}

TEST_F(DoorsTest, AScriptWithoutParametersLeavesTheResultSlotAlone) {
  OpenMainWindow();
  ASSERT_TRUE(doors.EnsureDoors());
  application->answer_instead = u"answer";
  EXPECT_EQ(doors.RunScript(dxl_script::kListModules), u"answer");
  EXPECT_TRUE(application->parameters.empty());
  EXPECT_EQ(doors.RunScript(dxl_script::kListViews, u"/P/M"), u"answer");
  EXPECT_EQ(application->parameters, std::vector<Text>{u"/P/M"});
  EXPECT_EQ(application->scripts[1], LoadDxl(102));
}

TEST_F(DoorsTest, ADoorsThatCannotBeCreatedIsTheCallersAffairAndTheDialogIsClosed) {
  objects.objects.clear();
  const frmConnectProgress* shown = nullptr;
  desktop.OnForm<frmConnectProgress>([&](frmConnectProgress& form) {
    shown = &form;
    OpenMainWindow();
    desktop.Tick();
  });
  frmConnectProgress form(platform);
  EXPECT_THROW(form.GetDoors(), AutomationError);
  ASSERT_EQ(shown, &form);
  EXPECT_FALSE(form.IsOpen());
  desktop.Tick();  // no timer of it is left to fail again
}

/// Lets messages run while it makes an object, as the system does.
struct PumpingObjects : ObjectFactory {
  Object Create(TextView) override {
    ++created;
    while_creating();
    return made;
  }
  Object made;
  std::function<void()> while_creating;
  int created = 0;
};

TEST_F(DoorsTest, MessagesThatRunWhileDoorsIsCreated) {
  PumpingObjects pumping;
  pumping.made = application->AsObject();
  const Platform pumped{desktop, folders, pumping};
  const struct {
    const char* name;
    std::function<void(frmConnectProgress&)> meanwhile;
    bool is_connected;
  } cases[] = {
      {"ticks", [this](frmConnectProgress&) { desktop.Tick(); }, true},
      {"Cancel", [](frmConnectProgress& form) { form.cmdCancel.Press(); }, false},
      {"the close box", [](frmConnectProgress& form) { form.CloseByUser(); }, false},
  };
  OpenMainWindow();
  for (const auto& each : cases) {
    desktop.WindowAt(1).visible = false;
    desktop.OnForm<frmConnectProgress>([&](frmConnectProgress& form) {
      desktop.WindowAt(1).visible = true;
      pumping.while_creating = [&] { each.meanwhile(form); };
      pumping.created = 0;
      desktop.Tick();
      EXPECT_EQ(pumping.created, 1) << each.name;
      EXPECT_FALSE(form.IsOpen()) << each.name;
    });
    EXPECT_EQ(static_cast<bool>(frmConnectProgress(pumped).GetDoors()), each.is_connected) << each.name;
  }
}

}  // namespace
}  // namespace kestrune
