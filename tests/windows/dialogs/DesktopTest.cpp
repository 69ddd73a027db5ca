// The desktop's services beyond dialogs.
#include "tests/windows/dialogs/DialogTest.h"

namespace kestrune::testing {
namespace {

struct BoxCase {
  Buttons buttons;
  Icon icon;
  WORD key;
  Answer answer;
};

class MessageBoxTest : public DialogTest, public ::testing::WithParamInterface<BoxCase> {};

TEST_P(MessageBoxTest, IsAnswered) {
  const BoxCase& box = GetParam();
  WithPerson(
      [&] {
        const Screen screen(u"Kestrune Link");
        EXPECT_EQ(screen.TextAt(0xFFFF), u"Größe?\r\n100 %");
        screen.Key(box.key);
      },
      [&] {
        const Message message = {
            .Body = u"Größe?\r\n100 %", .Title = u"Kestrune Link", .Icon = box.icon, .Buttons = box.buttons};
        EXPECT_EQ(desktop.Show(message), box.answer);
      });
}

INSTANTIATE_TEST_SUITE_P(Boxes, MessageBoxTest,
                         ::testing::Values(BoxCase{Buttons::kOk, Icon::kStop, VK_ESCAPE, Answer::kOk},
                                           BoxCase{Buttons::kOk, Icon::kInformation, VK_RETURN, Answer::kOk},
                                           BoxCase{Buttons::kYesNo, Icon::kQuestion, 'N', Answer::kNo},
                                           BoxCase{Buttons::kYesNo, Icon::kExclamation, VK_RETURN,
                                                   Answer::kYes}));

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

TEST_F(DialogTest, PendingMessagesRun) {
  const DoorsWindow window(DoorsWindow::kMain, false);
  PostMessageW(window.Window(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(IsWindow(window.Window()));
  desktop.PumpMessages();
  EXPECT_FALSE(IsWindow(window.Window()));
}

}  // namespace
}  // namespace kestrune::testing
