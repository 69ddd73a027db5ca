// Every form of the add-in on a real screen: what the person does to the windows is what the form
// understands, and what the form says is what the windows show.
#include "addin/frmAbout.h"
#include "doors/frmConnect.h"
#include "doors/frmConnectProgress.h"
#include "import/frmImport.h"
#include "options/frmMapWizard.h"
#include "options/frmOptions.h"
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
  app->Answer = [](const Text&) { return Text(u"/Demo/Reqs\n/Demo/Tests\n/R && D/A\n"); };
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
    {"ManualGivenUp",
     [](const Screen& connect) {
       connect.Click(ID_cmdManual);
       Screen(u"Manual DOORS Connection").Key(VK_ESCAPE);
       Screen(u"DOORS Connection").Key(VK_ESCAPE);
     },
     u""}};
INSTANTIATE_TEST_SUITE_P(Persons, frmConnectTest, ::testing::ValuesIn(kConnectCases),
                         [](const auto& info) { return std::string(info.param.name); });

class frmOptionsTest : public DialogTest {
 protected:
  frmOptions::CloseCode Edit(const Lines& rules, const std::function<void(const Screen&)>& person) {
    StoreRules(rules);
    auto code = frmOptions::kCancelled;
    WithPerson([&] { person(Screen(u"Options")); },
               [&] { code = frmOptions(doors).ShowOptions(orim::Repository(), package); });
    return code;
  }
  static Text Cell(const Screen& options, int row, int column) {
    char16_t text[100] = {};
    LVITEMW item = {.iSubItem = column, .pszText = reinterpret_cast<wchar_t*>(text), .cchTextMax = 100};
    options.Ask(ID_lvMappings, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return text;
  }
  /// Map, Combine and Remove as letters, where they are enabled.
  static std::string EnabledOf(const Screen& options) {
    std::string letters;
    if (options.EnabledAt(ID_cmdMap)) letters += 'M';
    if (options.EnabledAt(ID_cmdCombine)) letters += 'C';
    if (options.EnabledAt(ID_cmdRemove)) letters += 'R';
    return letters;
  }
  static void AwaitButtons(const Screen& options, const std::string& letters) {
    options.Await(("the buttons " + letters).c_str(), [&] { return EnabledOf(options) == letters; });
  }
  const Text& Stored() { return model.Find(u"DoorsConnection")->Notes; }

  const DoorsWindow main_window_{DoorsWindow::kMain, true};
};

TEST_F(frmOptionsTest, MapsARuleByKeyboardThroughTheWizard) {
  const auto code = Edit({u"A", u"B --> Name", u"C"}, [](const Screen& options) {
    EXPECT_EQ(Cell(options, 1, 0), u"B");
    EXPECT_EQ(Cell(options, 1, 1), u"Name");
    EXPECT_EQ(options.TextAt(ID_lblModulePath), u"No Connection");
    EXPECT_EQ(EnabledOf(options), "MC");
    options.ClickRow(ID_lvMappings, 2);
    options.Key('M', VK_MENU);
    const Screen wizard(u"Configure attribute mapping");
    EXPECT_EQ(wizard.TextAt(ID_cmdNext), u"&Finish");
    EXPECT_FALSE(wizard.VisibleAt(ID_lstExtra));
    EXPECT_FALSE(wizard.EnabledAt(ID_cmdBack));
    wizard.Await("the focus", [&] { return wizard.HasFocus(ID_lstTarget); });
    wizard.Key(VK_RETURN);
    wizard.AwaitClosed();
    options.Await("the mapping", [&] {
      return Cell(options, 1, 1) == u"(Tagged Value)" || Cell(options, 0, 1) == u"(Tagged Value)" ||
             Cell(options, 2, 1) == u"(Tagged Value)";
    });
    options.Click(ID_cmdOK);
  });
  EXPECT_EQ(code, frmOptions::kAccepted);
  EXPECT_NE(Stored().find(u"C --> (Tagged Value)"), Text::npos) << ToUtf8(Stored());
}

TEST_F(frmOptionsTest, CombinesTwoAttributesPageByPage) {
  Edit({u"A", u"B", u"C"}, [](const Screen& options) {
    options.ClickRow(ID_lvMappings, 0);
    options.Key('C', VK_MENU);
    const Screen wizard(u"Configure attribute mapping");
    EXPECT_EQ(wizard.LinesOf(ID_lstExtra), Lines({u"B", u"C"}));
    wizard.ClickLine(ID_lstExtra, 1, 2);
    wizard.Await("the separator's page", [&] { return wizard.VisibleAt(ID_txtSep); });
    wizard.Await("the focus", [&] { return wizard.HasFocus(ID_txtSep); });
    wizard.Type(u"::");
    wizard.Await("the example", [&] { return wizard.TextAt(ID_lblPreview) == u"For example: A:: C"; });
    wizard.Key('N', VK_MENU);
    wizard.Await("the target's page", [&] { return wizard.VisibleAt(ID_lstTarget); });
    wizard.Key('B', VK_MENU);
    wizard.Await("the page before", [&] { return wizard.VisibleAt(ID_txtSep); });
    EXPECT_EQ(wizard.TextAt(ID_txtSep), u"::");
    wizard.Key(VK_TAB);
    wizard.Key('S', VK_MENU);
    wizard.Await("the access key", [&] { return wizard.HasFocus(ID_txtSep); });
    wizard.Key(VK_RETURN);
    wizard.Await("the target's page", [&] { return wizard.VisibleAt(ID_lstTarget); });
    wizard.Click(ID_cmdNext);
    wizard.AwaitClosed();
    options.Await("the rule", [&] { return Cell(options, 0, 0) == u"A [:: C]"; });
    options.CloseBox();
  });
}

TEST_F(frmOptionsTest, TheButtonsFollowTheSelection) {
  Edit({u"A", u"B --> Name", u"C --> Notes"}, [](const Screen& options) {
    options.ClickRow(ID_lvMappings, 1);
    AwaitButtons(options, "R");
    options.Key(VK_DOWN, VK_SHIFT);
    options.Await("two rows", [&] { return options.Ask(ID_lvMappings, LVM_GETSELECTEDCOUNT) == 2; });
    EXPECT_EQ(EnabledOf(options), "R");
    options.Key('R', VK_MENU);
    options.Await("the removal", [&] { return Cell(options, 2, 1).empty() && Cell(options, 1, 1).empty(); });
    AwaitButtons(options, "MC");
    options.Await("the focus", [&] { return options.HasFocus(ID_lvMappings); });
    options.ClickRow(ID_lvMappings, 0, 2);
    Screen(u"Configure attribute mapping").Key(VK_ESCAPE);
    options.Await("the way back", [&] { return IsWindowEnabled(options.Window()) != FALSE; });
    options.Key(VK_ESCAPE);
  });
}

TEST_F(frmOptionsTest, CtrlASelectsAllRowsAndDeleteRemovesTheirTargets) {
  Edit({u"A --> Name", u"B --> Notes"}, [](const Screen& options) {
    options.ClickRow(ID_lvMappings, 1);
    options.Key('A', VK_CONTROL);
    options.Await("all rows", [&] { return options.Ask(ID_lvMappings, LVM_GETSELECTEDCOUNT) == 2; });
    AwaitButtons(options, "R");
    options.Key(VK_DELETE);
    options.Await("the removal", [&] { return Cell(options, 0, 1).empty() && Cell(options, 1, 1).empty(); });
    options.Key(VK_ESCAPE);
  });
}

TEST_F(frmOptionsTest, TheMenuCopiesAndPastes) {
  Edit({u"A --> Name", u"B"}, [this](const Screen& options) {
    const auto choose = [&](WORD key) {
      options.Click(ID_cmdMappings);
      options.Await("the menu", [] { return FindWindowW(L"#32768", nullptr) != nullptr; });
      options.Key(key);
      options.Await("the menu's closing", [] { return FindWindowW(L"#32768", nullptr) == nullptr; });
    };
    choose('C');
    options.Await("the text on the clipboard",
                  [] { return IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE; });
    options.Click(ID_cmdRemove);
    options.Await("the removal", [&] { return Cell(options, 0, 1).empty(); });
    choose('P');
    options.Await("the pasted rule",
                  [&] { return Cell(options, 0, 1) == u"Name" || Cell(options, 1, 1) == u"Name"; });
    choose(VK_ESCAPE);
    options.Click(ID_cmdSaveAndImport);
  });
  EXPECT_NE(desktop.ClipboardText().find(u"A --> Name"), Text::npos);
}

TEST_F(frmOptionsTest, TheViewsAreAskedForWhenTheListOpensAndOneIsChosen) {
  app->Answer = [](const Text& script) {
    return script == LoadDxl(dxl_script::kListViews) ? Text(u"View 1\nstandard view\n") : Text();
  };
  Edit({u"A"}, [](const Screen& options) {
    EXPECT_EQ(options.TextAt(ID_cmbViews), u"Standard view");
    options.Key('V', VK_MENU);
    options.Key(VK_F4);
    options.Await("the views", [&] { return options.Ask(ID_cmbViews, CB_GETCOUNT) == 3; });
    EXPECT_EQ(options.Ask(ID_cmbViews, CB_GETCURSEL), 0) << "told apart by case";
    EXPECT_EQ(options.TextAt(ID_cmbViews), u"Standard view");
    options.Key(VK_DOWN);
    options.Key(VK_RETURN);
    options.Await("the choice", [&] { return options.TextAt(ID_cmbViews) == u"View 1"; });
    options.Key(VK_END);
    options.Type(u"2");
    options.Click(ID_cmdOK);
  });
  EXPECT_NE(Stored().find(u"View 12"), Text::npos) << ToUtf8(Stored());
}

TEST_F(frmOptionsTest, ALockedPackageIsShownAndHelpOpensItsTopic) {
  model.Locked = true;
  const auto code = Edit({u"A"}, [this](const Screen& options) {
    EXPECT_EQ(options.TextAt(ID_lblPackageName), u"Requirements (LOCKED)");
    for (const int id : {ID_cmdOK, ID_cmdMap, ID_cmdMappings, ID_cmdSaveAndImport, ID_cmdReloadAttribs})
      EXPECT_FALSE(options.EnabledAt(id)) << id;
    options.Click(ID_cmdHelp);
    options.Await("the help", [this] { return !desktop.help_shown.empty(); });
    options.Key(VK_ESCAPE);
  });
  EXPECT_EQ(code, frmOptions::kCancelled);
  EXPECT_EQ(desktop.help_shown, std::vector<int>({3400}));
}

TEST_F(frmOptionsTest, NoTargetIsCut) {
  Edit({u"A", u"B", u"C --> Name"}, [](const Screen& options) {
    const auto column = [&](WPARAM index) { return options.Ask(ID_lvMappings, LVM_GETCOLUMNWIDTH, index); };
    const auto room_for = [&](const char16_t* text) {
      return options.Ask(ID_lvMappings, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text));
    };
    EXPECT_GE(column(1), room_for(u"    Orim Studio"));
    const LRESULT both = column(0) + column(1);
    options.ClickRow(ID_lvMappings, 0);
    options.Await("the selection", [&] { return options.EnabledAt(ID_cmdMap); });
    options.Key('M', VK_MENU);
    Screen(u"Configure attribute mapping").Key(VK_RETURN);
    options.Await("the rule", [&] { return Cell(options, 0, 1) == u"(Tagged Value)"; });
    EXPECT_GE(column(1), room_for(u"(Tagged Value)") + 12) << "with the margins";
    EXPECT_EQ(column(0) + column(1), both);
    options.CloseBox();
  });
}

TEST_F(frmOptionsTest, TheListHasTheRoomThatTheDialogGains) {
  Edit({u"A"}, [](const Screen& options) {
    const auto at = [&](int id) {
      RECT rect = {};
      GetWindowRect(options.At(id), &rect);
      MapWindowPoints(nullptr, options.Window(), reinterpret_cast<POINT*>(&rect), 2);
      return rect;
    };
    const auto column = [&](WPARAM index) { return options.Ask(ID_lvMappings, LVM_GETCOLUMNWIDTH, index); };
    RECT frame = {};
    GetWindowRect(options.Window(), &frame);
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    const RECT list = at(ID_lvMappings), map = at(ID_cmdMap), ok = at(ID_cmdOK), views = at(ID_cmbViews);
    const LRESULT first = column(0), second = column(1);
    MoveWindow(options.Window(), 10, 10, width + 100, height + 50, TRUE);
    EXPECT_EQ(at(ID_lvMappings).right, list.right + 100);
    EXPECT_EQ(at(ID_lvMappings).bottom, list.bottom + 50);
    EXPECT_EQ(at(ID_cmdMap).left, map.left + 100);
    EXPECT_EQ(at(ID_cmdMap).top, map.top);
    EXPECT_EQ(at(ID_cmdOK).right, ok.right + 100);
    EXPECT_EQ(at(ID_cmdOK).top, ok.top + 50);
    EXPECT_EQ(at(ID_cmbViews).right, views.right + 100);
    EXPECT_EQ(at(ID_cmbViews).bottom, views.bottom);
    EXPECT_EQ(column(0), first + 100);
    EXPECT_EQ(column(1), second);
    MoveWindow(options.Window(), 10, 10, 50, 50, TRUE);
    GetWindowRect(options.Window(), &frame);
    EXPECT_EQ(frame.right - frame.left, width) << "it cannot become too small";
    options.Key(VK_ESCAPE);
  });
}

/// A host in which no package is selected.
class NoSelection : public StandInObject<NoSelection> {
 public:
  static constexpr const char16_t* kClassName = u"NoSelection";
  static const Members& Table() {
    static const Members table = {
        {u"SelectedPackage", {.Call = [](NoSelection&, const Args&) { return Variant(Object()); }}}};
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

}  // namespace
}  // namespace kestrune::testing
