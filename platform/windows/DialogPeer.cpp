#include "platform/windows/DialogPeer.h"

#include <algorithm>
#include <stdexcept>

#include "platform/ResourceStore.h"
#include "platform/com/Failure.h"
#include "platform/windows/DialogTemplate.h"
#include "platform/windows/Module.h"
#include "platform/windows/WindowText.h"

namespace kestrune {

namespace {

constexpr int kUnnamed = 0xFFFF;  // the id of windows that belong to no control, such as lines and pictures
constexpr int kIcon = 101;

[[noreturn]] void ThrowUnfit(const Form& form, TextView what) {
  throw std::logic_error(ToUtf8(Text(u"The dialog ").append(form.ClassName()).append(u": ").append(what)));
}

/// In front of all other windows, also of those of the program that is in front.
void BringForward(HWND dialog) {
  SetForegroundWindow(dialog);
  if (GetForegroundWindow() == dialog) return;
  // The system lets only the program in front say who is next. Above the others the dialog stands even so.
  for (const HWND place : {HWND_TOPMOST, HWND_NOTOPMOST})
    SetWindowPos(dialog, place, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

/// Opens the menu at the point on the screen or, without one, at the left edge and the bottom of the window `below`; the
/// item that the user chooses, null when the menu is left.
MenuItem* ChooseFromMenu(const Menu& menu, HWND dialog, HWND below, std::optional<POINT> at) {
  const OwnedMenu window(CreatePopupMenu());
  UINT_PTR id = 0;
  for (const MenuItem* item : menu.Items())
    AppendMenuW(window.get(), item->Enabled() ? MF_STRING : MF_STRING | MF_GRAYED, ++id,
                Wide(item->Caption()));
  TPMPARAMS around = {.cbSize = sizeof around};
  GetWindowRect(below, &around.rcExclude);
  const POINT corner = at.value_or(POINT{around.rcExclude.left, around.rcExclude.bottom});
  const int chosen = TrackPopupMenuEx(
      window.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_VERTICAL, corner.x,
      corner.y, dialog, at ? nullptr : &around);
  return chosen > 0 ? menu.Items()[static_cast<std::size_t>(chosen) - 1] : nullptr;
}

}  // namespace

DialogPeer::DialogPeer(Desktop& desktop, DialogSession& session, Form& form)
    : desktop_(desktop), session_(session), form_(form) {}

void DialogPeer::Run(HWND owner) {
  const DialogLook look;
  const NoWait no_wait(session_);
  const DialogTemplate layout(Text(form_.ClassName()));
  if (!layout.Get()) ThrowUnfit(form_, u"there is no such template");
  modality_.emplace(owner);
  const INT_PTR result =
      DialogBoxIndirectParamW(ThisModule(), layout.Get(), owner, Procedure, reinterpret_cast<LPARAM>(this));
  modality_.reset();
  std::erase(session_.Open, dialog_);  // the dialog may have been ended by others
  form_.Close();
  form_.Detach();
  if (failure_) std::rethrow_exception(failure_);
  if (result == -1) ThrowLastError();
}

INT_PTR CALLBACK DialogPeer::Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lparam);
    reinterpret_cast<DialogPeer*>(lparam)->dialog_ = dialog;
  }
  auto* peer = reinterpret_cast<DialogPeer*>(GetWindowLongPtrW(dialog, DWLP_USER));
  return peer ? peer->Receive(message, wparam, lparam) : FALSE;
}

INT_PTR DialogPeer::Receive(UINT message, WPARAM wparam, LPARAM lparam) {
  if (has_ended_) return FALSE;
  INT_PTR result = TRUE;
  ++messages_;
  try {
    result = Handle(message, wparam, lparam);
  } catch (...) {
    failure_ = std::current_exception();
    form_.Close();
  }
  if (--messages_ == 0)
    for (const auto& [control, peer] : peers_) peer->Settle();
  if (!form_.IsOpen()) {
    has_ended_ = true;
    std::erase(session_.Open, dialog_);
    modality_->GiveBack();
    EndDialog(dialog_, 0);
  }
  return result;
}

INT_PTR DialogPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_INITDIALOG:
      OnInit();
      return FALSE;  // the focus has been set
    case WM_COMMAND:
      OnCommand(LOWORD(wparam), HIWORD(wparam));
      return TRUE;
    case WM_NOTIFY:
      OnNotify(*reinterpret_cast<const NMHDR*>(lparam));
      return TRUE;
    case WM_TIMER:
      OnTimer(wparam);
      return TRUE;
    case WM_CLOSE:
      form_.CloseByUser();
      return TRUE;
    case WM_HELP:
      OnHelp(*reinterpret_cast<const HELPINFO*>(lparam));
      return TRUE;
    case WM_SIZE:
      OnSize();
      return TRUE;
    case WM_GETMINMAXINFO:
      if (layout_) reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = layout_->Smallest();
      return TRUE;
    case WM_SETCURSOR:
      return OnSetCursor();
    case WM_VKEYTOITEM:
      return OnKeyToItem(LOWORD(wparam), reinterpret_cast<HWND>(lparam));
    case WM_CONTEXTMENU:
      OnContextMenu(reinterpret_cast<HWND>(wparam), lparam);
      return TRUE;
  }
  return FALSE;
}

void DialogPeer::OnInit() {
  session_.Open.push_back(dialog_);
  focus_.SetDialog(dialog_);
  Bind();
  form_.Open(this);
  for (const auto& [control, peer] : peers_) {
    peer->Push();
    fonts_.Apply(*control, peer->Window());
  }
  FormChanged(form_);
  for (std::size_t i = 0; i < timers_.size(); ++i) UpdateTimer(i);
  if (GetWindowLongW(dialog_, GWL_STYLE) & WS_THICKFRAME) layout_.emplace(dialog_);
  Resized();
  const HANDLE icon = LoadImageW(ThisModule(), MAKEINTRESOURCEW(kIcon), IMAGE_ICON,
                                 GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED);
  SendMessageW(dialog_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
  PlaceOverOwner(dialog_);
  BringForward(dialog_);
  focus_.Begin();
}

void DialogPeer::Bind() {
  for (HWND each = GetWindow(dialog_, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT)) {
    const int id = GetDlgCtrlID(each) & 0xFFFF;
    if (id == kUnnamed) continue;
    Control* control = form_.FindControl(FromUtf8(StoredBytes(u"CONTROLNAME", id)));
    auto peer = control ? MakeControlPeer(*control, each) : nullptr;
    if (!peer) ThrowUnfit(form_, u"the form has no control for the window " + ToText(id));
    controls_[id] = control;
    peers_[control] = std::move(peer);
  }
  for (Control* control : form_.Controls()) {
    auto* timer = dynamic_cast<Timer*>(control);
    if (timer) timers_.push_back(timer);
    const bool has_window = !timer && !dynamic_cast<Menu*>(control) && !dynamic_cast<MenuItem*>(control);
    if (has_window && !peers_.contains(control))
      ThrowUnfit(form_, u"the template has no window for " + control->Name());
  }
}

void DialogPeer::OnCommand(int id, WORD code) {
  const HWND before = GetFocus();
  if (ControlPeer* peer = ReachablePeer(id)) peer->OnCommand(code);
  if (id == IDCANCEL && !controls_.contains(id)) form_.CloseByUser();
  if (form_.IsOpen()) focus_.Keep(before);
}

void DialogPeer::OnNotify(const NMHDR& notification) {
  const HWND before = GetFocus();
  if (ControlPeer* peer = ReachablePeer(static_cast<int>(notification.idFrom))) peer->OnNotify(notification);
  if (form_.IsOpen()) focus_.Keep(before);
}

void DialogPeer::OnTimer(std::size_t id) {
  const HWND before = GetFocus();
  if (id >= 1 && id <= timers_.size()) timers_[id - 1]->Fire();
  if (form_.IsOpen()) focus_.Keep(before);
}

// The Help button of a message box asks its owner, with the box's own topic.
void DialogPeer::OnHelp(const HELPINFO& request) {
  const int topic = request.dwContextId ? static_cast<int>(request.dwContextId) : form_.HelpContextID;
  if (topic) desktop_.ShowHelp(topic);
}

void DialogPeer::OnSize() {
  if (!layout_) return;
  layout_->Fit();
  Resized();
}

INT_PTR DialogPeer::OnSetCursor() const {
  if (!session_.IsWaiting) return FALSE;
  SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  SetWindowLongPtrW(dialog_, DWLP_MSGRESULT, TRUE);
  return TRUE;
}

void DialogPeer::UpdateTimer(std::size_t index) {
  const Timer& timer = *timers_[index];
  if (timer.Enabled() && timer.Interval > 0)
    SetTimer(dialog_, index + 1, static_cast<UINT>(timer.Interval), nullptr);
  else
    KillTimer(dialog_, index + 1);
}

void DialogPeer::Resized() {
  for (const auto& [control, peer] : peers_) peer->OnResized();
}

ControlPeer* DialogPeer::PeerOf(const Control& control) const {
  const auto found = peers_.find(&control);
  return found == peers_.end() ? nullptr : found->second.get();
}

ControlPeer* DialogPeer::ReachablePeer(int id) const {
  const auto found = controls_.find(id);
  if (found == controls_.end()) return nullptr;
  const Control& control = *found->second;
  ControlPeer* peer = PeerOf(control);
  return control.Enabled() && control.Visible() && !peer->IsPushing() ? peer : nullptr;
}

/// -2: there is no more to be done with the key; -1: the list does with it what lists do.
INT_PTR DialogPeer::OnKeyToItem(WORD key, HWND list) {
  ControlPeer* peer = ReachablePeer(GetDlgCtrlID(list));
  return peer && peer->OnListKey(key) ? -2 : -1;
}

// The keyboard asks for a menu at no place: both coordinates are -1.
void DialogPeer::OnContextMenu(HWND window, LPARAM place) {
  ControlPeer* peer = ReachablePeer(GetDlgCtrlID(window));
  if (!peer) return;
  if (place != -1) menu_point_ = POINT{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  peer->OnContextMenu();
  menu_point_.reset();
}

void DialogPeer::FormChanged(Form& form) {
  SetWindowTextW(dialog_, Wide(form.Caption));
}

void DialogPeer::ControlChanged(Control& control) {
  if (has_ended_) return;
  if (ControlPeer* peer = PeerOf(control)) return peer->Push();
  const auto timer = std::find(timers_.begin(), timers_.end(), &control);
  if (timer != timers_.end()) UpdateTimer(static_cast<std::size_t>(timer - timers_.begin()));
}

void DialogPeer::Repaint(Control& control) {
  if (const ControlPeer* peer = PeerOf(control)) UpdateWindow(peer->Window());
}

void DialogPeer::SetFocus(Control& control) {
  if (const ControlPeer* peer = PeerOf(control)) focus_.GiveTo(peer->Window());
}

void DialogPeer::PopUp(Menu& menu, Control& below) {
  MenuItem* chosen = ChooseFromMenu(menu, dialog_, PeerOf(below)->Window(), menu_point_);
  if (chosen) menu.Choose(*chosen);
}

}  // namespace kestrune
