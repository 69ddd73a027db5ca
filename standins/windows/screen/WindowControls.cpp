#include "standins/windows/screen/WindowControls.h"

// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the one above
// clang-format on

#include "platform/windows/WindowText.h"

namespace kestrune::standins {

namespace {

constexpr std::size_t kLongestCell = 4096;  // characters

LRESULT Ask(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
  return SendMessageW(window, message, wparam, lparam);
}

std::size_t Count(HWND window, UINT message) {
  const LRESULT count = Ask(window, message);
  return count < 0 ? 0 : static_cast<std::size_t>(count);
}

Text ItemOf(HWND list, std::size_t line, UINT length_message, UINT text_message) {
  const LRESULT length = Ask(list, length_message, line);
  if (length < 0) return {};
  Text text(static_cast<std::size_t>(length) + 1, u'\0');
  Ask(list, text_message, line, reinterpret_cast<LPARAM>(text.data()));
  text.pop_back();
  return text;
}

Text CellOf(HWND table, std::size_t row, int column) {
  Text text(kLongestCell, u'\0');
  LVITEMW item = {.iSubItem = column,
                  .pszText = reinterpret_cast<wchar_t*>(text.data()),
                  .cchTextMax = static_cast<int>(kLongestCell)};
  text.resize(static_cast<std::size_t>(Ask(table, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item))));
  return text;
}

void ReadTable(HWND table, play::ControlState& state) {
  const auto header = reinterpret_cast<HWND>(Ask(table, LVM_GETHEADER));
  const auto columns = static_cast<int>(Count(header, HDM_GETITEMCOUNT));
  for (std::size_t row = 0; row < Count(table, LVM_GETITEMCOUNT); ++row) {
    auto& cells = state.rows.emplace_back();
    for (int column = 0; column < columns; ++column) cells.push_back(CellOf(table, row, column));
    if (Ask(table, LVM_GETITEMSTATE, row, LVIS_SELECTED)) state.selected.push_back(cells.at(0));
  }
}

void ReadListBox(HWND list, play::ControlState& state) {
  for (std::size_t line = 0; line < Count(list, LB_GETCOUNT); ++line)
    state.rows.push_back({LineOf(list, line)});
  const LRESULT selected = Ask(list, LB_GETCURSEL);
  if (selected >= 0) state.selected = state.rows.at(static_cast<std::size_t>(selected));
}

}  // namespace

Kind KindOf(HWND control) {
  static constexpr std::pair<TextView, Kind> kKinds[] = {{u"Button", Kind::kButton},
                                                         {u"Edit", Kind::kTextBox},
                                                         {u"ListBox", Kind::kListBox},
                                                         {u"ComboBox", Kind::kComboBox},
                                                         {u"SysListView32", Kind::kTable}};
  const Text name = WindowClassOf(control);
  for (const auto& [class_name, kind] : kKinds)
    if (name == class_name) return kind;
  return Kind::kOther;
}

play::ControlState StateOf(HWND control) {
  const LONG style = GetWindowLongW(control, GWL_STYLE);
  play::ControlState state{
      (style & WS_DISABLED) == 0, (style & WS_VISIBLE) != 0, WindowTextOf(control), {}, {}};
  const Kind kind = KindOf(control);
  if (kind == Kind::kListBox) ReadListBox(control, state);
  if (kind == Kind::kTable) ReadTable(control, state);
  if (kind == Kind::kComboBox)
    for (std::size_t line = 0; line < Count(control, CB_GETCOUNT); ++line)
      state.rows.push_back({ItemOf(control, line, CB_GETLBTEXTLEN, CB_GETLBTEXT)});
  return state;
}

Text LineOf(HWND list_box, std::size_t line) {
  return ItemOf(list_box, line, LB_GETTEXTLEN, LB_GETTEXT);
}

}  // namespace kestrune::standins
