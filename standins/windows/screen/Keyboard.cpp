#include <cstdlib>

#include "standins/play/Dialog.h"
#include "standins/windows/screen/Means.h"
#include "standins/windows/screen/WindowControls.h"

namespace kestrune::standins {

namespace {

constexpr int kMostTabs = 60;

/// A key that is down while this lives.
class HeldKey {
 public:
  explicit HeldKey(WORD key) : key_(key) { Set(0x80); }
  ~HeldKey() { Set(0); }
  HeldKey(const HeldKey&) = delete;
  HeldKey& operator=(const HeldKey&) = delete;

 private:
  void Set(BYTE state) const {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[key_] = state;
    SetKeyboardState(keys);
  }
  WORD key_;
};

void Deliver(MSG message) {
  if (IsDialogMessageW(GetAncestor(message.hwnd, GA_ROOT), &message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

/// What the keys that were pressed mean as characters.
void DeliverCharacters() {
  MSG message = {};
  while (PeekMessageW(&message, nullptr, WM_CHAR, WM_CHAR, PM_REMOVE)) Deliver(message);
}

HWND Focus() {
  const HWND focus = GetFocus();
  if (!focus) throw play::Refusal(u"nothing has the focus");
  return focus;
}

void Key(WORD key) {
  Deliver({.hwnd = Focus(), .message = WM_KEYDOWN, .wParam = key, .lParam = 1});
  DeliverCharacters();
  if (const HWND focus = GetFocus())
    Deliver({.hwnd = focus, .message = WM_KEYUP, .wParam = key, .lParam = static_cast<LPARAM>(0xC0000001)});
}

void Keys(WORD key, std::size_t times) {
  for (; times > 0; --times) Key(key);
}

bool HasFocus(HWND control) {
  const HWND focus = Focus();
  return focus == control || IsChild(control, focus);
}

void TabTo(HWND control) {
  // From another program the user comes back to this one first.
  if (!GetActiveWindow()) SetForegroundWindow(GetAncestor(control, GA_ROOT));
  for (int tabs = 0; !HasFocus(control); ++tabs) {
    if (tabs == kMostTabs) throw play::Refusal(u"the keyboard does not reach it");
    Key(VK_TAB);
  }
}

void Press(HWND button) {
  TabTo(button);
  Key(VK_SPACE);
}

void Enter(HWND box, const Text& text) {
  TabTo(box);
  SendMessageW(Focus(), EM_SETSEL, 0, -1);
  if (text.empty()) return Key(VK_DELETE);
  for (const char16_t unit : text) SendMessageW(Focus(), WM_CHAR, unit, 1);
}

void Drop(HWND box) {
  TabTo(box);
  Key(VK_F4);
}

void SelectRows(const std::vector<std::size_t>& rows) {
  Key(VK_HOME);
  Keys(VK_DOWN, rows.front());
  const HeldKey control(VK_CONTROL);
  for (std::size_t i = 1; i < rows.size(); ++i) {
    Keys(rows[i] > rows[i - 1] ? VK_DOWN : VK_UP,
         rows[i] > rows[i - 1] ? rows[i] - rows[i - 1] : rows[i - 1] - rows[i]);
    Key(VK_SPACE);
  }
}

void ChooseFromBox(HWND box, std::size_t line) {
  const auto wanted = static_cast<LRESULT>(line);
  const LRESULT current = SendMessageW(box, CB_GETCURSEL, 0, 0);
  Keys(wanted > current ? VK_DOWN : VK_UP, static_cast<std::size_t>(std::llabs(wanted - current)));
  if (SendMessageW(box, CB_GETDROPPEDSTATE, 0, 0)) Key(VK_RETURN);
}

void SelectLines(HWND control, const std::vector<std::size_t>& lines) {
  TabTo(control);
  switch (KindOf(control)) {
    case Kind::kTable:
      return SelectRows(lines);
    case Kind::kListBox:
      Key(VK_HOME);
      return Keys(VK_DOWN, lines.front());
    default:
      ChooseFromBox(control, lines.front());
  }
}

void DoubleClickLine(HWND control, std::size_t line) {
  if (KindOf(control) == Kind::kTable) throw play::Refusal(u"a double click on a row takes a mouse");
  SelectLines(control, {line});
  Key(VK_RETURN);
}

}  // namespace

const Means kKeyboard = {Press, Enter, Drop, SelectLines, DoubleClickLine};

}  // namespace kestrune::standins
