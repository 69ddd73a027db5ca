#include "platform/windows/ListPeers.h"

#include <algorithm>

#include "platform/windows/WindowText.h"

namespace kestrune {

namespace {

constexpr int kTextMargin = 4;  // what a list box leaves free beside a line, in pixels

LPARAM AsParameter(const Text& text) {
  return reinterpret_cast<LPARAM>(text.c_str());
}

}  // namespace

void ListBoxPeer::OnCommand(WORD code) {
  if (TakesSeveral()) {
    if (code == LBN_SELCHANGE) TakeSelection();
    return;
  }
  const LRESULT index = Send(LB_GETCURSEL);
  if (index == LB_ERR) return;
  if (code == LBN_SELCHANGE) list_.ClickItem(static_cast<std::size_t>(index));
  if (code == LBN_DBLCLK) list_.DoubleClickItem(static_cast<std::size_t>(index));
}

void ListBoxPeer::TakeSelection() {
  std::vector<int> lines(static_cast<std::size_t>(Send(LB_GETSELCOUNT)));
  Send(LB_GETSELITEMS, lines.size(), reinterpret_cast<LPARAM>(lines.data()));
  shown_selection_.assign(lines.begin(), lines.end());
  list_.SelectLines(shown_selection_);
}

bool ListBoxPeer::OnListKey(WORD key) {
  if (GetKeyState(VK_CONTROL) >= 0 || (key != 'A' && key != 'C')) return false;
  if (key == 'A')
    list_.SelectAll();
  else
    list_.PressCopy();
  return true;
}

// One line more must not cost a look at all the others.
void ListBoxPeer::ShowSelection() {
  const auto& selected = list_.SelectedLines();
  if (selected == shown_selection_) return;
  if (shown_selection_.size() > 1)
    Send(LB_SETSEL, FALSE, -1);
  else if (!shown_selection_.empty())
    Send(LB_SETSEL, FALSE, static_cast<LPARAM>(shown_selection_[0]));
  if (selected.size() > 1 && selected.size() == list_.Items().size())
    Send(LB_SETSEL, TRUE, -1);
  else
    for (const std::size_t line : selected) Send(LB_SETSEL, TRUE, static_cast<LPARAM>(line));
  if (selected.size() == 1) Send(LB_SETCARETINDEX, selected[0], FALSE);
  shown_selection_ = selected;
}

void ListBoxPeer::PushContent() {
  const auto& lines = list_.Items();
  const int count = static_cast<int>(lines.size());
  if (count == 0 && Count() > 0) Send(LB_RESETCONTENT);
  for (int last = Count() - 1; last >= count; --last) Send(LB_DELETESTRING, static_cast<WPARAM>(last));
  const auto shown = static_cast<std::size_t>(Count());
  const std::size_t changed = list_.LastChanged();
  if (changed < shown && LineAt(changed) != lines[changed]) Replace(changed, lines[changed]);
  for (std::size_t index = shown; index < lines.size(); ++index) Insert(index, lines[index]);
  if (TakesSeveral()) return ShowSelection();
  if (Send(LB_GETCURSEL) != list_.ListIndex()) Send(LB_SETCURSEL, static_cast<WPARAM>(list_.ListIndex()));
}

Text ListBoxPeer::LineAt(std::size_t index) const {
  Text line(static_cast<std::size_t>(Send(LB_GETTEXTLEN, index)) + 1, u'\0');
  line.resize(static_cast<std::size_t>(Send(LB_GETTEXT, index, reinterpret_cast<LPARAM>(line.data()))));
  return line;
}

void ListBoxPeer::Insert(std::size_t index, const Text& line) {
  Send(LB_INSERTSTRING, index, AsParameter(line));
  const int width = TextWidth(Window(), line) + kTextMargin;
  if (width <= widest_) return;
  widest_ = width;
  Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width));
}

void ListBoxPeer::Replace(std::size_t index, const Text& line) {
  const auto top = static_cast<WPARAM>(Send(LB_GETTOPINDEX));
  Send(WM_SETREDRAW, FALSE);
  Send(LB_DELETESTRING, index);
  Insert(index, line);
  Send(LB_SETTOPINDEX, top);
  Send(WM_SETREDRAW, TRUE);
  RECT changed = {};
  Send(LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&changed));
  InvalidateRect(Window(), &changed, TRUE);
}

void ComboBoxPeer::OnCommand(WORD code) {
  if (code == CBN_DROPDOWN) box_.Drop();
  if (code == CBN_EDITCHANGE) box_.Type(WindowTextOf(Window()));
  if (code != CBN_SELCHANGE) return;
  const LRESULT index = SendMessageW(Window(), CB_GETCURSEL, 0, 0);
  if (index != CB_ERR) box_.Choose(static_cast<std::size_t>(index));
}

// A combo box selects its text when it is resized, as if the user had entered it.
void ComboBoxPeer::OnResized() {
  const HWND focus = GetFocus();
  if (focus != Window() && !IsChild(Window(), focus))
    SendMessageW(Window(), CB_SETEDITSEL, 0, MAKELPARAM(-1, 0));
}

void ComboBoxPeer::PushContent() {
  const bool is_refilled = shown_ != box_.Items();
  if (is_refilled) Fill();
  if (!is_refilled && WindowTextOf(Window()) == box_.Value()) return;
  const auto& items = box_.Items();
  const auto found = std::find(items.begin(), items.end(), box_.Value());
  const WPARAM index = found == items.end() ? static_cast<WPARAM>(-1) : found - items.begin();
  SendMessageW(Window(), CB_SETCURSEL, index, 0);
  if (found == items.end()) SetWindowTextW(Window(), Wide(box_.Value()));
}

void ComboBoxPeer::Fill() {
  shown_ = box_.Items();
  SendMessageW(Window(), CB_RESETCONTENT, 0, 0);
  for (const Text& item : shown_) SendMessageW(Window(), CB_ADDSTRING, 0, AsParameter(item));
}

}  // namespace kestrune
