// The forms of the add-in on a real screen: what the person does to the windows is what the form understands,
// and what the form says is what the windows show. frmOptionsTest.cpp has the options and their wizard.
#include "addin/frmAbout.h"
#include "doors/frmConnect.h"
#include "doors/frmConnectProgress.h"
#include "import/frmImport.h"
#include "tests/windows/dialogs/DialogTest.h"

namespace kestrune::testing {
namespace {

using Lines = std::vector<Text>;

class frmAboutTest : public DialogTest,
                     public ::testing::WithParamInterface<std::function<void(const Screen&)>> {};

TEST_P(frmAboutTest, ClosesEachWay) {
  frmAbout form;
  WithPerson(
      [&] {
        const Screen about(u"About");
        EXPECT_EQ(about.TextAt(ID_lblProduct), u"Kestrune Link");
        EXPECT_EQ(about.TextAt(ID_cmdOK), u"OK");
        about.Await("the focus", [&] { return about.HasFocus(ID_cmdOK); });
        GetParam()(about);
      },
      [&] { desktop.ShowModal(form); });
  EXPECT_FALSE(form.IsOpen());
}

INSTANTIATE_TEST_SUITE_P(Ways, frmAboutTest,
                         ::testing::Values([](const Screen& about) { about.Click(ID_cmdOK); },
                                           [](const Screen& about) { about.Key(VK_RETURN); },
                                           [](const Screen& about) { about.Key(VK_ESCAPE); },
                                           [](const Screen& about) { about.CloseBox(); }));

TEST_F(DialogTest, TheProgressOfTheConnectionFollowsTheWindowsOfDoors) {
  struct {
    DWORD style;
    bool is_visible;
    const char16_t* status;
  } const states[] = {{DoorsWindow::kStartUp, true, u"Doors is initializing..."},
                      {DoorsWindow::kLogin, true, u"Waiting for you to login to Doors"},
                      {DoorsWindow::kLogin, false, u"Doors confirming password..."}};
  frmConnectProgress form(platform);
  Object connected;
  WithPerson(
      [&] {
        const Screen progress(u"Connect to Doors");
        const auto await_status = [&](const Text& status) {
          progress.Await("the status", [&] { return progress.TextAt(ID_lblStatus) == status; });
        };
        await_status(u"Please open DOORS database");
        for (const auto& state : states) {
          const DoorsWindow window(state.style, state.is_visible);
          await_status(state.status);
          if (state.style == DoorsWindow::kLogin && state.is_visible)
            progress.Await("the login's coming to the front",
                           [&] { return GetForegroundWindow() == window.Window(); });
        }
        const DoorsWindow main_window(DoorsWindow::kMain, true);
        progress.AwaitClosed();
      },
      [&] { connected = form.GetDoors(); });
  EXPECT_TRUE(connected);
}

TEST_F(DialogTest, WaitingForDoorsCanBeGivenUp) {
  frmConnectProgress form(platform);
  WithPerson([] { Screen(u"Connect to Doors").Key(VK_ESCAPE); }, [&] { EXPECT_FALSE(form.GetDoors()); });
}

struct ConnectCase {
  const char* name;
  std::function<void(const Screen&)> person;
  Text selected;
};

class frmConnectTest : public DialogTest, public ::testing::WithParamInterface<ConnectCase> {
 protected:
  const DoorsWindow main_window_{DoorsWindow::kMain, true};
};

TEST_P(frmConnectTest, GivesTheModuleThatThePersonPicks) {
  app->answer = [](const Text&) { return Text(u"/Demo/Reqs\n/Demo/Tests\n/R && D/A\n"); };
  frmConnect form(doors);
  WithPerson(
      [&] {
        const Screen connect(u"DOORS Connection");
        connect.Await("the modules", [&] { return connect.Ask(ID_lstModules, LB_GETCURSEL) == 0; });
        EXPECT_EQ(connect.LinesOf(ID_lstModules), Lines({u"/Demo/Reqs", u"/Demo/Tests", u"/R && D/A"}));
        GetParam().person(connect);
      },
      [&] { EXPECT_EQ(form.ShowIt(), GetParam().selected); });
}

const ConnectCase kConnectCases[] = {
    {"Enter", [](const Screen& connect) { connect.Key(VK_RETURN); }, u"/Demo/Reqs"},
    {"Click",
     [](const Screen& connect) {
       connect.ClickLine(ID_lstModules, 2);
       connect.Click(ID_cmdOK);
     },
     u"/R && D/A"},
    {"Arrow",
     [](const Screen& connect) {
       connect.Key(VK_DOWN);
       connect.Key(VK_RETURN);
     },
     u"/Demo/Tests"},
    {"DoubleClick", [](const Screen& connect) { connect.ClickLine(ID_lstModules, 1, 2); }, u"/Demo/Tests"},
    {"Cancel", [](const Screen& connect) { connect.Click(ID_cmdCancel); }, u""},
    {"CloseBox", [](const Screen& connect) { connect.CloseBox(); }, u""},
    {"Manual",
     [](const Screen& connect) {
       connect.Click(ID_cmdManual);
       const Screen box(u"Manual DOORS Connection");
       box.Await("the focus", [&] { return box.HasFocus(ID_txtEntry); });
       EXPECT_EQ(box.TextAt(ID_cmdOK), u"OK");
       box.Type(u"/Größe/Maße €");
       box.Key(VK_RETURN);
     },
     u"/Größe/Maße €"},
    {"ManualByKeyboard",
     [](const Screen& connect) {
       connect.Key(VK_TAB);
       connect.Key(VK_SPACE);
       const Screen box(u"Manual DOORS Connection");
       box.Type(u"/A");
       box.Key(VK_TAB);
       box.Key(VK_SPACE);
     },
     u"/A"},
    {"ManualGivenUp",
     [](const Screen& connect) {
       connect.Click(ID_cmdManual);
       Screen(u"Manual DOORS Connection").Key(VK_ESCAPE);
       Screen(u"DOORS Connection").Key(VK_ESCAPE);
     },
     u""}};
INSTANTIATE_TEST_SUITE_P(Persons, frmConnectTest, ::testing::ValuesIn(kConnectCases),
                         [](const auto& info) { return std::string(info.param.name); });

/// A host in which no package is selected.
class NoSelection : public StandInObject<NoSelection> {
 public:
  static constexpr const char16_t* kClassName = u"NoSelection";
  static const Members& Table() {
    static const Members table = {
        {u"SelectedPackage", {.call = [](NoSelection&, const Args&) { return Variant(Object()); }}}};
    return table;
  }
};

TEST_F(DialogTest, TheImportWindowReportsAndCloses) {
  const DoorsWindow main_window(DoorsWindow::kMain, true);
  frmImport form(doors);
  WithPerson(
      [] {
        const Screen box(u"Kestrune Link");
        const HWND import = GetWindow(box.Window(), GW_OWNER);
        EXPECT_FALSE(IsWindowEnabled(import));
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(import, ID_cmdClose)));
        EXPECT_EQ(SendMessageW(GetDlgItem(import, ID_List1), LB_GETCOUNT, 0, 0), 1);
        box.Key(VK_RETURN);
      },
      [&] { form.Transfer(orim::Repository(Object(std::make_shared<NoSelection>())), 0); });
  EXPECT_EQ(form.List1.Items(), Lines({u"Connecting to DOORS"}));
}

TEST_F(DialogTest, TheImportWindowsLinesCanBeCopied) {
  frmImport form(doors);
  form.Timer1.Tick = [&form] {
    form.Timer1.SetEnabled(false);
    for (const char16_t* line : {u"one", u"two", u"three"}) form.Progress(line);
    form.cmdClose.SetEnabled(true);
  };
  WithPerson([&] {
    const Screen import(u"Import Progress");
    import.AwaitEnabled(ID_cmdClose);
    EXPECT_EQ(import.Ask(ID_List1, LB_GETSELCOUNT), 1) << "the last line";
    import.ClickLine(ID_List1, 1);
    import.Key('C', VK_CONTROL);
        import.Await("one line", [&] { return desktop.ClipboardText() == u"two\r\n";
  });
  import.Key('A', VK_CONTROL);
        import.Await("all lines", [&] { return import.Ask(ID_List1, LB_GETSELCOUNT) == 3;
});
import.Key('C', VK_CONTROL);
        import.Await("all of them", [&] { return desktop.ClipboardText() == u"one\r\ntwo\r\nthree\r\n";
        });
        import.ClickLine(ID_List1, 0);
        import.Await("one line alone", [&] { return import.Ask(ID_List1, LB_GETSELCOUNT) == 1;
        });
        PostMessageW(import.Window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(import.At(ID_List1)), -1);
        import.Await("the menu", [] { return FindWindowW(L"#32768", nullptr) != nullptr;
        });
        import.Key('C');
        import.Await("the line", [&] { return desktop.ClipboardText() == u"one\r\n";
        });
        import.Click(ID_cmdClose);
        },
      [&] {
  form.Transfer(orim::Repository(), frmImport::kImport); });
        }

        }  // namespace
        }  // namespace kestrune::testing
