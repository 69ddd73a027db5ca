// What is expected of every dialog alike: a person with a keyboard alone comes to the end, the host cannot be
// used meanwhile, and nothing is left behind.
#include "platform/com/Owned.h"
#include "tests/windows/dialogs/DialogStage.h"
#include "tests/windows/dialogs/EveryDialog.h"
#include "tests/windows/dialogs/HostWindows.h"
#include "tests/windows/dialogs/SystemObjects.h"

namespace kestrune::testing {
namespace {

class EveryDialogTest : public DialogTest, public ::testing::WithParamInterface<ShownDialog> {
 protected:
  EveryDialogTest() { PrepareLink(*this); }
  void ShowWith(const std::function<void(const Screen&)>& person) {
    WithPerson(
        [&] {
          const Screen dialog(GetParam().title);
          if (GetParam().name == std::string("frmImport")) dialog.AwaitEnabled(ID_cmdClose);
          person(dialog);
          if (IsWindow(dialog.Window())) dialog.Key(VK_ESCAPE);
        },
        [&] { GetParam().show(*this); });
  }
};

TEST_P(EveryDialogTest, IsUsedByKeyboardAlone) {
  ShowWith([](const Screen& dialog) {
    if (GetParam().title == Text(u"DOORS Connection")) dialog.AwaitEnabled(ID_cmdOK);
    dialog.Await("the first focus", [&] { return dialog.HasFocus(GetParam().first_focus); });
    const auto stops = dialog.TabStops();
    std::set<int> reached = {GetParam().first_focus};
    while (reached.size() < stops.size()) {
      const int before = dialog.FocusedId();
      dialog.Key(VK_TAB);
      dialog.Await("the next focus", [&] { return dialog.FocusedId() != before && dialog.FocusedId() != 0; });
      if (!reached.insert(dialog.FocusedId()).second) break;
    }
    EXPECT_EQ(reached, stops);
  });
}

TEST_P(EveryDialogTest, ItsHelpIsReachedEachWay) {
  if (GetParam().help == 0) return;
  desktop.SetHelpFile(u"" KESTRUNE_HELP);
  desktop.opens_help = true;
  ShowWith([](const Screen& dialog) {
    const auto read_and_close = [&] {
      HWND help = nullptr;
      dialog.Await("the help", [&] {
        help = FindWindowW(L"HH Parent", nullptr);
        return help && IsWindowVisible(help);
      });
      PostMessageW(help, WM_CLOSE, 0, 0);
      dialog.Await("the end of the help", [&] { return !IsWindow(help); });
      SetForegroundWindow(dialog.Window());
    };
    dialog.Key(VK_F1);
    read_and_close();
    dialog.Hold(VK_MENU);  // a person lets go of it when the help is there
    dialog.Key('H');
    dialog.Await("the topic", [] { return FindWindowW(L"HH Parent", nullptr) != nullptr; });
    dialog.Release(VK_MENU);
    read_and_close();
    dialog.Click(ID_cmdHelp);
    read_and_close();
  });
  EXPECT_EQ(desktop.help_shown, std::vector<int>(3, GetParam().help));
}

TEST_P(EveryDialogTest, KeepsTheUserFromAllWindowsOfTheHost) {
  const HostWindows host;
  SetActiveWindow(host.Pane());
  ShowWith([&](const Screen& dialog) {
    EXPECT_EQ(host.Enabled(), "");
    EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), host.Main()) << "not the pane, which may go";
  });
  EXPECT_EQ(host.Enabled(), "main pane second");
  EXPECT_EQ(GetActiveWindow(), host.Pane());
}

TEST_P(EveryDialogTest, HasNoButtonThatCannotBePressed) {
  ShowWith([](const Screen& dialog) {
    const LONG boxes = GetWindowLongW(dialog.Window(), GWL_STYLE) & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
    EXPECT_TRUE(boxes == 0 || boxes == (WS_MINIMIZEBOX | WS_MAXIMIZEBOX));
  });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, EveryDialogTest, ::testing::ValuesIn(EveryDialog()), [](const auto& info) {
  std::string name = info.param.name;
  std::erase(name, '-');
  return name;
});

TEST_F(DialogTest, AHundredDialogsLeaveBehindWhatOneLeaves) {
  PrepareLink(*this);
  const auto show_all = [this] {
    for (const ShownDialog& dialog : EveryDialog()) {
      if (dialog.name == std::string("frmImport")) continue;  // cannot be closed at once
      WithPerson([&] { PostMessageW(Screen(dialog.title).Window(), WM_CLOSE, 0, 0); },
                 [&] { dialog.show(*this); });
    }
  };
  show_all();
  const SystemObjects before = CountSystemObjects();
  for (int shown = 0; shown < 100; shown += static_cast<int>(EveryDialog().size()) - 1) show_all();
  const SystemObjects after = CountSystemObjects();
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_EQ(after.fonts, before.fonts);
  EXPECT_LT(after.drawing - before.drawing, 50);
  const OwnedFont font(CreateFontW(9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial"));
  EXPECT_EQ(CountSystemObjects().fonts, after.fonts + 1) << "the count counts";
}

}  // namespace
}  // namespace kestrune::testing
