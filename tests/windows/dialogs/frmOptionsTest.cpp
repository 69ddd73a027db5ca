// The options and their wizard on a real screen, but for what the sessions do there.
#include "options/frmOptions.h"
#include "tests/windows/dialogs/DialogStage.h"

namespace kestrune::testing {
namespace {

using Lines = std::vector<Text>;

class frmOptionsTest : public DialogTest {
 protected:
  frmOptions::CloseCode Edit(const Lines& rules, const std::function<void(const Screen&)>& person) {
    StoreRules(rules);
    auto code = frmOptions::kCancelled;
    WithPerson([&] { person(Screen(u"Options")); },
               [&] { code = frmOptions(doors).ShowOptions(orim::Repository(), Package()); });
    return code;
  }
  static Text Cell(const Screen& options, int row, int column) {
    char16_t text[100] = {};
    LVITEMW item = {.iSubItem = column, .pszText = reinterpret_cast<wchar_t*>(text), .cchTextMax = 100};
    options.Ask(ID_lvMappings, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return text;
  }
  static LRESULT ColumnWidth(const Screen& options, WPARAM column) {
    return options.Ask(ID_lvMappings, LVM_GETCOLUMNWIDTH, column);
  }

  const DoorsWindow main_window_{DoorsWindow::kMain, true};
};

TEST_F(frmOptionsTest, NoTargetIsCut) {
  Edit({u"A", u"B", u"C --> Name"}, [](const Screen& options) {
    const auto column = [&](WPARAM index) { return ColumnWidth(options, index); };
    const auto room_for = [&](const char16_t* text) {
      return options.Ask(ID_lvMappings, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text));
    };
    EXPECT_GE(column(1), room_for(u"    Orim Studio"));
    const LRESULT both = column(0) + column(1);
    options.ClickRow(ID_lvMappings, 0);
    options.AwaitEnabled(ID_cmdMap);
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
    const auto edges_of = [&](HWND window) {
      RECT rect = {};
      GetWindowRect(window, &rect);
      MapWindowPoints(nullptr, options.Window(), reinterpret_cast<POINT*>(&rect), 2);
      return std::vector<LONG>{rect.left, rect.top, rect.right, rect.bottom};
    };
    const std::pair<int, std::vector<LONG>> moves[] = {{ID_lvMappings, {0, 0, 100, 50}},
                                                       {ID_cmdMap, {100, 0, 100, 0}},
                                                       {ID_cmdOK, {100, 50, 100, 50}},
                                                       {ID_cmbViews, {0, 0, 100, 0}}};
    std::map<int, std::vector<LONG>> expected;
    for (const auto& [id, by] : moves) {
      expected[id] = edges_of(options.At(id));
      for (std::size_t edge = 0; edge < 4; ++edge) expected[id][edge] += by[edge];
    }
    const LRESULT first = ColumnWidth(options, 0), second = ColumnWidth(options, 1);
    const auto frame = edges_of(options.Window());
    const int width = frame[2] - frame[0], height = frame[3] - frame[1];
    MoveWindow(options.Window(), 10, 10, width + 100, height + 50, TRUE);
    for (const auto& [id, edges] : expected) EXPECT_EQ(edges_of(options.At(id)), edges) << id;
    EXPECT_EQ(ColumnWidth(options, 0), first + 100);
    EXPECT_EQ(ColumnWidth(options, 1), second);
    MoveWindow(options.Window(), 10, 10, 50, 50, TRUE);
    const auto smallest = edges_of(options.Window());
    EXPECT_EQ(smallest[2] - smallest[0], width) << "it cannot become too small";
    options.Key(VK_ESCAPE);
  });
}

TEST_F(frmOptionsTest, TheKeyboardIsNeverLostOnTheWayThroughTheWizard) {
  const auto code = Edit({u"A", u"B", u"C"}, [](const Screen& options) {
    options.Key(VK_SPACE);
    options.AwaitEnabled(ID_cmdCombine);
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
  EXPECT_NE(StoredRules().find(u"A [: C] --> (Tagged Value)"), Text::npos)
      << "a second Enter takes nothing back";
}

TEST_F(frmOptionsTest, ALongListKeepsItsPlaceWhenARowIsMapped) {
  Lines rules;
  for (int i = 100; i < 300; ++i) rules.push_back(u"Attribute " + ToText(i));
  Edit(rules, [](const Screen& options) {
    constexpr int kTop = 100, kRow = 103;
    const auto top = [&] { return options.Ask(ID_lvMappings, LVM_GETTOPINDEX); };
    RECT row = {.left = LVIR_BOUNDS};
    options.Ask(ID_lvMappings, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    options.Ask(ID_lvMappings, LVM_SCROLL, 0, kTop * (row.bottom - row.top));
    EXPECT_EQ(top(), kTop);
    options.ClickRow(ID_lvMappings, kRow);
    options.AwaitEnabled(ID_cmdMap);
    options.Key('M', VK_MENU);
    Screen(u"Configure attribute mapping").Key(VK_RETURN);
    options.Await("the mapping", [&] { return Cell(options, kRow, 1) == u"(Tagged Value)"; });
    options.AwaitEnabled(ID_cmdRemove);
    EXPECT_EQ(top(), kTop);
    options.Key('R', VK_MENU);
    options.Await("the removal", [&] { return Cell(options, kRow, 1).empty(); });
    EXPECT_EQ(top(), kTop);
    options.Key(VK_ESCAPE);
  });
}

TEST_F(frmOptionsTest, AllRowsAreSelectedAndRemovedByKeys) {
  Edit({u"A --> Name", u"B --> Notes", u"C --> (Tagged Value)"}, [](const Screen& options) {
    options.Key('A', VK_CONTROL);
    options.Await("all rows", [&] { return options.Ask(ID_lvMappings, LVM_GETSELECTEDCOUNT) == 3; });
    options.AwaitEnabled(ID_cmdRemove);
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
