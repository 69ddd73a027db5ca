#include "platform/windows/ListViewPeer.h"

#include <algorithm>

#include "platform/windows/WindowText.h"

namespace kestrune {

namespace {

constexpr int kCellMargin = 6;  // what a list view leaves free on each side of a text, in pixels

wchar_t* Mutable(const Text& text) {
  return const_cast<wchar_t*>(Wide(text));  // the structures serve for reading as well
}

}  // namespace

ListViewPeer::ListViewPeer(ListView& list, HWND window) : ControlPeer(list, window), list_(list) {
  const LPARAM style = LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, style, style);
}

void ListViewPeer::OnNotify(const NMHDR& notification) {
  if (notification.code == LVN_ITEMCHANGED) {
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(notification);
    if ((change.uOldState ^ change.uNewState) & LVIS_SELECTED) list_.SelectRows(SelectedByUser());
  }
  if (notification.code == LVN_KEYDOWN) OnKey(reinterpret_cast<const NMLVKEYDOWN&>(notification).wVKey);
  if (notification.code == NM_DBLCLK) {
    const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(notification);
    if (click.iItem >= 0) list_.DoubleClickRow(static_cast<std::size_t>(click.iItem));
  }
}

void ListViewPeer::OnKey(WORD key) {
  if (key == VK_DELETE) list_.PressDelete();
  if (key == 'A' && GetKeyState(VK_CONTROL) < 0) list_.SelectAll();
}

std::vector<std::size_t> ListViewPeer::SelectedByUser() const {
  std::vector<std::size_t> rows;
  auto row = static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  while (row >= 0) {
    rows.push_back(static_cast<std::size_t>(row));
    row = static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED));
  }
  return rows;
}

void ListViewPeer::PushContent() {
  if (shown_columns_ != list_.Columns()) PushColumns();
  PushRows();
  PushSelection();
  FitColumns();
}

void ListViewPeer::PushColumns() {
  for (std::size_t i = shown_columns_.size(); i > 0; --i) Send(LVM_DELETECOLUMN, i - 1);
  shown_columns_ = list_.Columns();
  for (std::size_t i = 0; i < shown_columns_.size(); ++i) {
    LVCOLUMNW column = {.mask = LVCF_TEXT | LVCF_SUBITEM, .pszText = Mutable(shown_columns_[i])};
    column.iSubItem = static_cast<int>(i);
    Send(LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
  }
  fitted_ = {};
}

void ListViewPeer::PushRows() {
  const auto& rows = list_.Rows();
  for (; shown_rows_.size() > rows.size(); shown_rows_.pop_back())
    Send(LVM_DELETEITEM, shown_rows_.size() - 1);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (row == shown_rows_.size()) {
      LVITEMW item = {.iItem = static_cast<int>(row)};
      Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
      shown_rows_.emplace_back(shown_columns_.size());
    }
    const std::size_t cells = std::min(rows[row].Cells.size(), shown_columns_.size());
    for (std::size_t column = 0; column < cells; ++column) PushCell(row, column, rows[row].Cells[column]);
  }
}

void ListViewPeer::PushCell(std::size_t row, std::size_t column, const Text& text) {
  Text& shown = shown_rows_[row][column];
  if (shown == text) return;
  shown = text;
  LVITEMW item = {.iSubItem = static_cast<int>(column), .pszText = Mutable(text)};
  Send(LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
}

void ListViewPeer::PushSelection() {
  const auto& rows = list_.Rows();
  for (std::size_t row = 0; row < rows.size(); ++row)
    if (IsSelected(row) != rows[row].Selected)
      SetState(row, rows[row].Selected ? LVIS_SELECTED : 0, LVIS_SELECTED);
  if (!list_.VisibleRow()) scrolled_to_.reset();
}

void ListViewPeer::Settle() {
  if (list_.VisibleRow() == scrolled_to_) return;
  scrolled_to_ = list_.VisibleRow();
  SetState(*scrolled_to_, LVIS_FOCUSED, LVIS_FOCUSED);
  Send(LVM_ENSUREVISIBLE, *scrolled_to_, FALSE);
}

bool ListViewPeer::IsSelected(std::size_t row) const {
  return (Send(LVM_GETITEMSTATE, row, LVIS_SELECTED) & LVIS_SELECTED) != 0;
}

void ListViewPeer::SetState(std::size_t row, UINT state, UINT mask) {
  LVITEMW item = {.state = state, .stateMask = mask};
  Send(LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

int ListViewPeer::WidthOfSecond() const {
  int widest = TextWidth(Window(), u"    " + shown_columns_[1]);
  for (const auto& cells : shown_rows_)
    if (!cells[1].empty()) widest = std::max(widest, TextWidth(Window(), cells[1]) + 2 * kCellMargin);
  return widest;
}

// Only for other widths: the columns stay as the user has set them.
void ListViewPeer::FitColumns() {
  if (shown_columns_.size() != 2) return;
  RECT inside = {};
  GetClientRect(Window(), &inside);
  const std::pair<int, int> widths(inside.right, WidthOfSecond());
  if (widths == fitted_) return;
  fitted_ = widths;
  Send(LVM_SETCOLUMNWIDTH, 0, widths.first - widths.second);
  Send(LVM_SETCOLUMNWIDTH, 1, widths.second);
}

}  // namespace kestrune
