#include "standins/windows/screen/Means.h"
#include "standins/windows/screen/WindowControls.h"

// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the one above
// clang-format on

namespace kestrune::standins {

namespace {

LRESULT Ask(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
  return SendMessageW(window, message, wparam, lparam);
}

/// What WM_COMMAND tells the dialog of a control.
void Notify(HWND control, WORD code) {
  Ask(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
      reinterpret_cast<LPARAM>(control));
}

void SetRowState(HWND table, WPARAM row, UINT state) {
  LVITEMW item = {.state = state, .stateMask = LVIS_SELECTED | (state & LVIS_FOCUSED)};
  Ask(table, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

void SelectRows(HWND table, const std::vector<std::size_t>& rows) {
  constexpr WPARAM kAll = static_cast<WPARAM>(-1);
  SetRowState(table, kAll, 0);
  for (const std::size_t row : rows) SetRowState(table, row, LVIS_SELECTED | LVIS_FOCUSED);
}

void DoubleClickRow(HWND table, std::size_t row) {
  SelectRows(table, {row});
  Ask(table, LVM_ENSUREVISIBLE, row, FALSE);
  RECT at = {.left = LVIR_LABEL};
  Ask(table, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&at));
  Ask(table, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.left + 2, (at.top + at.bottom) / 2));
  Ask(table, WM_LBUTTONUP, 0, MAKELPARAM(at.left + 2, (at.top + at.bottom) / 2));
}

HWND TextPartOf(HWND box) {
  if (KindOf(box) == Kind::kTextBox) return box;
  COMBOBOXINFO parts = {.cbSize = sizeof parts};
  GetComboBoxInfo(box, &parts);
  return parts.hwndItem;
}

void Press(HWND button) {
  Ask(button, BM_CLICK);
}

void Enter(HWND box, const Text& text) {
  const HWND part = TextPartOf(box);
  SetFocus(part);
  Ask(part, EM_SETSEL, 0, -1);
  Ask(part, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void Drop(HWND box) {
  SetFocus(box);
  Ask(box, CB_SHOWDROPDOWN, TRUE);
}

void SelectLines(HWND control, const std::vector<std::size_t>& lines) {
  SetFocus(control);
  switch (KindOf(control)) {
    case Kind::kTable:
      return SelectRows(control, lines);
    case Kind::kListBox:
      Ask(control, LB_SETCURSEL, lines.front());
      return Notify(control, LBN_SELCHANGE);
    default:
      Ask(control, CB_SETCURSEL, lines.front());
      Notify(control, CBN_SELCHANGE);
      Ask(control, CB_SHOWDROPDOWN, FALSE);
  }
}

void DoubleClickLine(HWND control, std::size_t line) {
  SetFocus(control);
  if (KindOf(control) == Kind::kTable) return DoubleClickRow(control, line);
  SelectLines(control, {line});
  Notify(control, LBN_DBLCLK);
}

}  // namespace

const Means kMouse = {Press, Enter, Drop, SelectLines, DoubleClickLine};

}  // namespace kestrune::standins
