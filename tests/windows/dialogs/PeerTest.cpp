// What any form can expect of its dialog.
#include "tests/windows/dialogs/DialogStage.h"

namespace kestrune::testing {
namespace {

/// Has the controls of the progress window's template.
class ListForm : public Form {
 public:
  TextView ClassName() const override { return u"frmImport"; }
  Label Label1{this, u"Label1"};
  ListBox List1{this, u"List1"};
  Button cmdClose{this, u"cmdClose"};
  Button cmdHelp{this, u"cmdHelp"};
  Timer Timer1{this, u"Timer1"};
  std::function<void()> OnLoad;
  bool may_close = true;

 private:
  void Form_Load() override {
    SetCaption(u"List");
    cmdHelp.SetCaption(u"&Help");
    cmdClose.Click = [this] { Close(); };
    if (OnLoad) OnLoad();
  }
  void Form_CloseBox() override {
    if (may_close) Close();
  }
};

class PeerTest : public DialogTest {
 protected:
  void Use(const std::function<void(const Screen&)>& person) {
    WithPerson([&] { person(Screen(u"List")); }, [&] { desktop.ShowModal(form_); });
  }
  ListForm form_;
};

/// Counts what a list box is asked to do, for the thread that owns it.
class MessageCount {
 public:
  explicit MessageCount(HWND list) : list_(list) {
    Count = 0;
    previous_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OnMessage)));
  }
  ~MessageCount() { SetWindowLongPtrW(list_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous_)); }
  static inline int Count;

 private:
  static LRESULT CALLBACK OnMessage(HWND list, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message >= LB_ADDSTRING && message < LB_MSGMAX) ++Count;
    return CallWindowProcW(previous_, list, message, wparam, lparam);
  }
  HWND list_;
  static inline WNDPROC previous_;
};

TEST_F(PeerTest, OnlyWhatChangedOfALongListIsSetAndItKeepsWhereItIsScrolledTo) {
  constexpr int kLines = 100;
  int messages = 0;
  form_.OnLoad = [&] {
    for (int i = 0; i < 200; ++i) form_.List1.AddItem(ToText(i));
  };
  form_.cmdHelp.Click = [&] {
    const MessageCount count(GetDlgItem(GetActiveWindow(), ID_List1));
    for (int i = 0; i < kLines; ++i) form_.List1.AddItem(u"line");
    form_.List1.SetItem(110, u"changed");
    form_.List1.SetListIndex(103);
    form_.List1.Truncate(150);
    messages = MessageCount::Count;
    form_.cmdClose.SetFocus();
  };
  Use([&](const Screen& list) {
    list.Ask(ID_List1, LB_SETTOPINDEX, 100);
    list.Click(ID_cmdHelp);
    list.Await("all lines", [&] { return list.HasFocus(ID_cmdClose); });
    EXPECT_EQ(list.Ask(ID_List1, LB_GETCOUNT), 150);
    EXPECT_EQ(list.Ask(ID_List1, LB_GETTOPINDEX), 100);
    EXPECT_EQ(list.Ask(ID_List1, LB_GETCURSEL), 103);
    EXPECT_EQ(list.LinesOf(ID_List1)[110], u"changed");
    list.Key(VK_RETURN);
  });
  EXPECT_LT(messages, 10 * kLines) << "each line costs the same, however many there are";
}

TEST_F(PeerTest, ATickIsNotEnteredAgainFromItsOwnMessageBox) {
  int ticks = 0, other_ticks = 0;
  Timer other(&form_, u"other");
  form_.Timer1.Interval = other.Interval = 10;
  form_.Timer1.Tick = [&] {
    ++ticks;
    desktop.Show({.Body = u"busy", .Title = u"Box"});
    form_.Timer1.SetEnabled(false);
  };
  other.Tick = [&] { ++other_ticks; };
  WithPerson(
      [&] {
        const Screen box(u"Box");
        const int before = other_ticks;
        box.Await("the timers", [&] { return other_ticks > before + 10; });
        EXPECT_EQ(ticks, 1);
        box.Key(VK_RETURN);
        Screen(u"List").Key(VK_ESCAPE);
      },
      [&] { desktop.ShowModal(form_); });
  EXPECT_EQ(ticks, 1);
}

TEST_F(PeerTest, AFormThatMustStayOpenStaysOpen) {
  form_.may_close = false;
  Use([](const Screen& list) {
    list.CloseBox();
    list.Key(VK_ESCAPE);
    list.Click(ID_Label1);
    EXPECT_TRUE(IsWindow(list.Window()));
    list.Click(ID_cmdClose);
  });
}

TEST_F(PeerTest, WhatAHandlerThrowsIsThrownOn) {
  form_.cmdHelp.Click = [] { throw AutomationError(error::kBase, u"test", u"pressed"); };
  EXPECT_THROW(Use([](const Screen& list) { list.Click(ID_cmdHelp); }), AutomationError);
  EXPECT_EQ(form_.Peer(), nullptr);
  form_.Timer1.Interval = 10;
  form_.Timer1.Tick = [] { throw AutomationError(error::kBase, u"test", u"ticked"); };
  WithPerson([] {}, [&] { EXPECT_THROW(desktop.ShowModal(form_), AutomationError); });
  form_.OnLoad = [] { throw AutomationError(error::kBase, u"test", u"loaded"); };
  WithPerson([] {}, [&] { EXPECT_THROW(desktop.ShowModal(form_), AutomationError); });
}

TEST_F(PeerTest, AFormAndATemplateThatDoNotFitAreRefused) {
  class Stranger : public Form {
   public:
    TextView ClassName() const override { return u"frmNobody"; }
  } stranger;
  EXPECT_THROW(desktop.ShowModal(stranger), std::logic_error);
  const Button extra(&form_, u"cmdExtra");
  EXPECT_THROW(desktop.ShowModal(form_), std::logic_error);
}

TEST_F(PeerTest, AControlThatIsDisabledOrHiddenGivesTheFocusAway) {
  for (const bool is_hidden : {false, true}) {
    form_.OnLoad = [&] {
      form_.cmdHelp.SetEnabled(true);
      form_.cmdHelp.SetVisible(true);
    };
    form_.cmdHelp.Click = [&] {
      // Its repainting makes notifications, which come while the focus is nowhere.
      form_.List1.SetListIndex(-1);
      if (is_hidden)
        form_.cmdHelp.SetVisible(false);
      else
        form_.cmdHelp.SetEnabled(false);
      form_.List1.AddItem(u"line");
    };
    Use([](const Screen& list) {
      list.Key('H', VK_MENU);
      list.Await("the click", [&] { return list.TabStops().size() == 2; });
      list.Await("a focus", [&] { return list.TabStops().contains(list.FocusedId()); });
      list.Key(VK_ESCAPE);
    });
  }
}

TEST_F(PeerTest, TheWaitCursorIsNotThatOfADialogWhichOpensMeanwhile) {
  const auto shows_wait = [](HWND dialog) {
    SetCursor(nullptr);
    SendMessageW(dialog, WM_SETCURSOR, reinterpret_cast<WPARAM>(dialog), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return GetCursor() == LoadCursorW(nullptr, IDC_WAIT);
  };
  ListForm inner;
  bool inner_waits = true, outer_waits = false;
  inner.OnLoad = [&] { inner.SetCaption(u"Inner"); };
  inner.cmdHelp.Click = [&] { inner_waits = shows_wait(GetActiveWindow()); };
  form_.cmdHelp.Click = [&] {
    desktop.SetWaitCursor(true);
    const HWND dialog = GetActiveWindow();
    desktop.ShowModal(inner);
    outer_waits = shows_wait(dialog);
    desktop.SetWaitCursor(false);
  };
  Use([](const Screen& list) {
    list.Click(ID_cmdHelp);
    const Screen nested(u"Inner");
    nested.Click(ID_cmdHelp);
    nested.Key(VK_ESCAPE);
    nested.AwaitClosed();
    Screen(u"List").Key(VK_ESCAPE);
  });
  EXPECT_FALSE(inner_waits);
  EXPECT_TRUE(outer_waits);
}

TEST_F(PeerTest, TheFontOfTheLanguageIsUsed) {
  form_.OnLoad = [&] { ApplyFont(form_, u"Liberation Sans"); };
  Use([](const Screen& list) {
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(list.Ask(ID_Label1, WM_GETFONT)), sizeof font, &font);
    EXPECT_STREQ(font.lfFaceName, L"Liberation Sans");
    EXPECT_EQ(font.lfCharSet, SHIFTJIS_CHARSET);
    list.Key(VK_ESCAPE);
  });
}

}  // namespace
}  // namespace kestrune::testing
