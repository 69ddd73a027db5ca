// The forms of the add-in on a real screen, but for what the sessions do there. frmOptionsTest.cpp has the options and
// their wizard.
#include "import/frmImport.h"
#include "tests/windows/dialogs/DialogStage.h"

namespace kestrune::testing {
namespace {

TEST_F(DialogTest, TheImportWindowsLinesCanBeCopied) {
  frmImport form(doors);
  form.Timer1.Tick = [&form] {
    form.Timer1.SetEnabled(false);
    for (const char16_t* line : {u"one", u"two", u"three"}) form.Progress(line);
    form.cmdClose.SetEnabled(true);
  };
  const auto copy_lines = [&] {
    const Screen window(u"Import Progress");
    const auto await_selected = [&](int lines) {
      window.Await("the selection", [&] { return window.Ask(ID_List1, LB_GETSELCOUNT) == lines; });
    };
    const auto await_copy = [&](const Text& lines) {
      window.Await("the copy", [&] { return desktop.ClipboardText() == lines; });
    };
    window.AwaitEnabled(ID_cmdClose);
    await_selected(1);  // the last line
    window.ClickLine(ID_List1, 1);
    window.Key('C', VK_CONTROL);
    await_copy(u"two\r\n");
    window.Key('A', VK_CONTROL);
    await_selected(3);
    window.Key('C', VK_CONTROL);
    await_copy(u"one\r\ntwo\r\nthree\r\n");
    window.ClickLine(ID_List1, 0);
    await_selected(1);
    PostMessageW(window.Window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.At(ID_List1)), -1);
    window.Await("the menu", [] { return FindWindowW(L"#32768", nullptr) != nullptr; });
    window.Key('C');
    await_copy(u"one\r\n");
    window.Click(ID_cmdClose);
  };
  WithPerson(copy_lines, [&] { form.Transfer(orim::Repository(), frmImport::kImport); });
}

}  // namespace
}  // namespace kestrune::testing
