// The options and their wizard on a real screen.
#include "options/frmMapWizard.h"
#include "options/frmOptions.h"
#include "tests/windows/dialogs/DialogTest.h"

namespace kestrune::testing {
namespace {

using Lines = std::vector<Text>;

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
  static int RowHeight(const Screen& options) {
    RECT row = {.left = LVIR_BOUNDS};
    options.Ask(ID_lvMappings, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    return row.bottom - row.top;
  }
  const Text& Stored() { return model.Find(u"DoorsConnection")->notes; }

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

TEST_F(frmOptionsTest, TheMenuCopiesAndPastes) {
  Edit({u"A --> Name", u"B"}, [this](const Screen& options) {
    const auto choose = [&](WORD key) {
      options.Key('P', VK_MENU);
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
    options.Key('S', VK_MENU);
  });
  EXPECT_NE(desktop.ClipboardText().find(u"A --> Name"), Text::npos);
}

TEST_F(frmOptionsTest, TheViewsAreAskedForWhenTheListOpensAndOneIsChosen) {
  app->answer = [](const Text& script) {
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
  model.locked = true;
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

TEST_F(frmOptionsTest, TheKeyboardIsNeverLostOnTheWayThroughTheWizard) {
  const auto code = Edit({u"A", u"B", u"C"}, [](const Screen& options) {
    options.Key(VK_SPACE);
    AwaitButtons(options, "MC");
    options.Key('C', VK_MENU);
    const Screen wizard(u"Configure attribute mapping");
    const auto await_focus = [&](int id) {
      wizard.Await("the page's focus", [&] { return wizard.HasFocus(id); });
    };
    await_focus(ID_lstExtra);
    wizard.Key(VK_DOWN);
    wizard.Key(VK_RETURN);
    await_focus(ID_txtSep);
    wizard.Type(u":");
    wizard.Key(VK_RETURN);
    await_focus(ID_lstTarget);
    wizard.Key('B', VK_MENU);
    await_focus(ID_txtSep);
    wizard.Key('B', VK_MENU);
    await_focus(ID_lstExtra);
    wizard.Key(VK_RETURN);
    await_focus(ID_txtSep);
    wizard.Key(VK_RETURN);
    await_focus(ID_lstTarget);
    wizard.Key(VK_RETURN);
    wizard.AwaitClosed();
    options.Await("the rule", [&] { return Cell(options, 0, 0) == u"A [: C]"; });
    options.Await("the list's focus", [&] { return options.HasFocus(ID_lvMappings); });
    options.Key(VK_RETURN);
  });
  EXPECT_EQ(code, frmOptions::kAccepted);
  EXPECT_NE(Stored().find(u"A [: C] --> (Tagged Value)"), Text::npos) << "a second Enter takes nothing back";
}

Lines ManyAttributes() {
  Lines rules;
  for (int i = 100; i < 300; ++i) rules.push_back(u"Attribute " + ToText(i));
  return rules;
}

TEST_F(frmOptionsTest, ALongListKeepsItsPlaceWhenARowIsMapped) {
  Edit(ManyAttributes(), [](const Screen& options) {
    const auto top = [&] { return options.Ask(ID_lvMappings, LVM_GETTOPINDEX); };
    options.Ask(ID_lvMappings, LVM_SCROLL, 0, 100 * RowHeight(options));
    const LRESULT before = top();
    EXPECT_EQ(before, 100);
    const int row = static_cast<int>(before) + 3;
    options.ClickRow(ID_lvMappings, row);
    AwaitButtons(options, "MC");
    options.Key('M', VK_MENU);
    Screen(u"Configure attribute mapping").Key(VK_RETURN);
    options.Await("the mapping", [&] { return Cell(options, row, 1) == u"(Tagged Value)"; });
    AwaitButtons(options, "R");
    EXPECT_EQ(top(), before);
    options.Key('R', VK_MENU);
    options.Await("the removal", [&] { return Cell(options, row, 1).empty(); });
    EXPECT_EQ(top(), before);
    options.Key(VK_ESCAPE);
  });
}

TEST_F(frmOptionsTest, AllRowsAreSelectedAndRemovedByKeys) {
  Edit({u"A --> Name", u"B --> Notes", u"C --> (Tagged Value)"}, [](const Screen& options) {
    options.Key('A', VK_CONTROL);
    options.Await("all rows", [&] { return options.Ask(ID_lvMappings, LVM_GETSELECTEDCOUNT) == 3; });
    AwaitButtons(options, "R");
    options.Key(VK_DELETE);
    options.Await("the removal", [&] {
      return Cell(options, 0, 1).empty() && Cell(options, 1, 1).empty() && Cell(options, 2, 1).empty();
    });
    options.Key(VK_DELETE);  // nothing is mapped: nothing happens
    options.Key(VK_ESCAPE);
  });
}

}  // namespace
}  // namespace kestrune::testing
