// The desktop's services beyond dialogs.
#include <atomic>

#include "tests/windows/dialogs/DialogStage.h"
#include "tests/windows/dialogs/HostWindows.h"

namespace kestrune::testing {
namespace {

TEST_F(DialogTest, TheClipboardKeepsEveryCharacter) {
  for (const Text& text : {Text(u"Größe €\r\n𝄞"), Text(), Text(10000, u'x')}) {
    desktop.SetClipboardText(text);
    EXPECT_EQ(desktop.ClipboardText(), text);
  }
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  CloseClipboard();
  EXPECT_EQ(desktop.ClipboardText(), u"");
}

TEST_F(DialogTest, WindowsAreFoundByClassAndStyle) {
  const DoorsWindow window(DoorsWindow::kMain, true);
  WindowHandle found = 0;
  desktop.EnumTop([&](WindowHandle each) {
    if (desktop.ClassOf(each) == u"DOORSWindow") found = each;
    return found == 0;
  });
  ASSERT_NE(found, 0u);
  EXPECT_TRUE(desktop.IsVisible(found));
  EXPECT_EQ(desktop.StyleOf(found) & 0x04FF0000, 0x04CF0000u);
  desktop.BringToFront(found);
  EXPECT_EQ(desktop.Foreground(), found);
  desktop.Minimize(found);
  EXPECT_TRUE(IsIconic(window.Window()));
  EXPECT_THROW(desktop.EnumTop([](WindowHandle) -> bool { throw std::runtime_error("visit"); }),
               std::runtime_error);
}

TEST_F(DialogTest, AProgramIsStartedOrItsLackToldInWords) {
  desktop.StartCommand(u"cmd.exe /c exit");
  try {
    desktop.StartCommand(u"no-such-program.exe \"x\"");
    FAIL() << "started";
  } catch (const AutomationError& failure) {
    EXPECT_FALSE(failure.Description.empty());
  }
}

TEST_F(DialogTest, AHelpFileThatIsMissingIsSaid) {
  Win32Desktop plain;
  plain.SetHelpFile(u"C:\\no such folder\\ORIMDOORS.chm");
  WithPerson(
      [] {
        const Screen box(u"Kestrune Link");
        EXPECT_EQ(box.TextAt(0xFFFF),
                  u"The help file is missing: C:\\no such folder\\ORIMDOORS.chm. Install Kestrune Link again "
                  u"to get it "
                  u"back.");
        box.Key(VK_RETURN);
      },
      [&] { plain.ShowHelp(1000); });
}

TEST_F(DialogTest, DuringACallbackDialogsBelongToTheHostWhateverIsActive) {
  const HostWindows host;
  SetActiveWindow(host.Pane());
  const Desktop::Callback callback(desktop);
  std::atomic<bool> is_doors_in_front = false;
  WithPerson(
      [&] {
        const DoorsWindow login(DoorsWindow::kLogin, true);
        SetForegroundWindow(login.Window());
        is_doors_in_front = true;
        for (const char16_t* title : {u"Box", u"Input"}) {
          const Screen dialog(title);
          EXPECT_EQ(GetWindow(dialog.Window(), GW_OWNER), host.Main());
          EXPECT_EQ(host.Enabled(), "");
          dialog.Key(VK_ESCAPE);
        }
      },
      [&] {
        while (!is_doors_in_front || GetActiveWindow()) desktop.PumpMessages();
        desktop.Show({.Body = u"text", .Title = u"Box"});
        desktop.AskText(u"Input", u"Which?");
      });
  EXPECT_EQ(host.Enabled(), "main pane second");
}

TEST_F(DialogTest, DialogsHaveTheMessageFontThatTheUserHasChosen) {
  NONCLIENTMETRICSW chosen = {.cbSize = sizeof chosen};
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof chosen, &chosen, 0);
  NONCLIENTMETRICSW other = chosen;
  wcscpy(other.lfMessageFont.lfFaceName, L"Liberation Serif");
  other.lfMessageFont.lfHeight = -20;
  for (NONCLIENTMETRICSW* metrics : {&other, &chosen}) {
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof *metrics, metrics, 0);
    WithPerson(
        [&] {
          const Screen box(u"Input");
          LOGFONTW font = {};
          GetObjectW(reinterpret_cast<HFONT>(box.Ask(ID_lblPrompt, WM_GETFONT)), sizeof font, &font);
          EXPECT_STREQ(font.lfFaceName, metrics->lfMessageFont.lfFaceName);
          EXPECT_EQ(font.lfHeight, metrics->lfMessageFont.lfHeight);
          EXPECT_EQ(box.TextAt(ID_cmdCancel), u"Cancel") << "what follows the font is there";
          box.Key(VK_ESCAPE);
        },
        [&] { desktop.AskText(u"Input", u"Which?"); });
  }
}

TEST_F(DialogTest, PendingMessagesRun) {
  const DoorsWindow window(DoorsWindow::kMain, false);
  PostMessageW(window.Window(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(IsWindow(window.Window()));
  desktop.PumpMessages();
  EXPECT_FALSE(IsWindow(window.Window()));
}

}  // namespace
}  // namespace kestrune::testing
