#include "standins/windows/screen/WindowDialog.h"

#include <algorithm>

#include "platform/com/ComText.h"

namespace kestrune::standins {

using play::ControlState;
using play::Refusal;
using play::Statement;

namespace {

/// The name of a dialog's control in the resources of the module that made the dialog; "" when it has none.
Text NameIn(HMODULE module, int id) {
  const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(id & 0xFFFF), L"CONTROLNAME");
  if (!found) return {};
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module, found)));
  return FromUtf8({bytes, SizeofResource(module, found)});
}

std::map<Text, HWND> ControlsOf(HWND dialog) {
  const auto module = reinterpret_cast<HMODULE>(GetWindowLongPtrW(dialog, GWLP_HINSTANCE));
  std::map<Text, HWND> controls;
  for (HWND each = GetWindow(dialog, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT))
    if (Text name = NameIn(module, GetDlgCtrlID(each)); !name.empty()) controls.emplace(name, each);
  return controls;
}

bool IsOneOf(Kind kind, std::initializer_list<Kind> kinds) {
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

}  // namespace

WindowDialog::WindowDialog(HWND window, const DialogNames& names, const Means& means, Hands& hands)
    : window_(window), names_(names), means_(means), hands_(hands), controls_(ControlsOf(window)) {
  const auto has_control = [this](const auto& form) { return controls_.contains(form.first); };
  const auto found = std::find_if(names.forms.begin(), names.forms.end(), has_control);
  if (found == names.forms.end()) return;
  name_ = found->second;
  is_form_ = true;
}

Text WindowDialog::Caption() const {
  return TitleOf(window_);
}

void WindowDialog::Do(const Statement& action) {
  const Text& verb = action.verb;
  if (verb == u"select") return Select(action);
  if (verb == u"doubleclick") return DoubleClick(action);
  if (verb == u"menu") return ChooseFromMenu(action);
  if (verb == u"close")
    return hands_.Do([window = window_] { SendMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0); });
  if (verb == u"press")
    return hands_.Do([this, button = Reach(action, {Kind::kButton})] { means_.press(button); });
  if (verb == u"drop") return hands_.Do([this, box = Reach(action, {Kind::kComboBox})] { means_.drop(box); });
  if (verb == u"type") {
    return hands_.Do([this, box = Reach(action, {Kind::kTextBox, Kind::kComboBox}), text = action.texts[0]] {
      means_.enter(box, text);
    });
  }
  throw Refusal(u"no user of a dialog can " + verb);
}

ControlState WindowDialog::Look(const Text& control) const {
  ControlState state;
  hands_.Look([&state, window = Find(control)] { state = StateOf(window); });
  return state;
}

HWND WindowDialog::FindControl(const Text& name) const {
  const auto found = controls_.find(name);
  return found == controls_.end() ? nullptr : found->second;
}

HWND WindowDialog::Find(const Text& control) const {
  if (const HWND found = FindControl(control)) return found;
  throw Refusal(name_ + u" has no control " + control);
}

HWND WindowDialog::Reach(const Statement& action, std::initializer_list<Kind> kinds) const {
  const Text& name = action.names[0];
  const HWND control = Find(name);
  if (!IsOneOf(KindOf(control), kinds)) play::RefuseKind(name);
  play::RequireReachable(Look(name), name, name_);
  return control;
}

void WindowDialog::Select(const Statement& action) {
  const Text& name = action.names[0];
  const HWND control = Reach(action, {Kind::kListBox, Kind::kComboBox, Kind::kTable});
  const ControlState state = Look(name);
  std::vector<std::size_t> lines;
  for (const Text& text : action.texts) lines.push_back(play::PlaceOf(text, state, name));
  if (lines.size() > 1 && KindOf(control) != Kind::kTable) throw Refusal(name + u" takes one line");
  hands_.Do([=, this] { means_.select_lines(control, lines); });
}

void WindowDialog::DoubleClick(const Statement& action) {
  const Text& name = action.names[0];
  const HWND control = Reach(action, {Kind::kListBox, Kind::kTable});
  const std::size_t line = play::PlaceOf(action.texts[0], Look(name), name);
  hands_.Do([=, this] { means_.double_click_line(control, line); });
}

void WindowDialog::ChooseFromMenu(const Statement& action) {
  const auto menu = names_.menus.find(action.names[0]);
  if (menu == names_.menus.end()) throw Refusal(name_ + u" has no control " + action.names[0]);
  const HWND window = hands_.OpenMenu();
  if (!window) throw Refusal(menu->first + u" is not open");
  const auto& items = menu->second;
  const auto found = std::find(items.begin(), items.end(), action.names[1]);
  if (found == items.end()) throw Refusal(menu->first + u" has no item " + action.names[1]);
  const auto item = static_cast<std::size_t>(found - items.begin());
  UINT state = 0;
  hands_.Look([&] {
    const auto handle = reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0));
    state = GetMenuState(handle, static_cast<UINT>(item), MF_BYPOSITION);
  });
  play::RequireReachable({.enabled = (state & (MF_GRAYED | MF_DISABLED)) == 0}, action.names[1], name_);
  hands_.Choose(item);
}

Text TitleOf(HWND window) {
  wchar_t title[256] = {};
  return Text(FromWide({title, static_cast<std::size_t>(InternalGetWindowText(window, title, 256))}));
}

}  // namespace kestrune::standins
