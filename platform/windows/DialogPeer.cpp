#include "platform/windows/DialogPeer.h"

#include <algorithm>
#include <stdexcept>

#include "platform/ResourceStore.h"
#include "platform/windows/Module.h"
#include "platform/windows/WindowText.h"

namespace kestrune {

namespace {

constexpr int kUnnamed = 0xFFFF;  // the id of windows that belong to no control, such as lines and pictures
constexpr int kIcon = 101;

[[noreturn]] void ThrowUnfit(const Form& form, TextView what) {
  throw std::logic_error(ToUtf8(Text(u"The dialog ").append(form.ClassName()).append(u": ").append(what)));
}

bool IsReachable(HWND window) {
  return (GetWindowLongW(window, GWL_STYLE) & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

/// Opens the menu at the left edge and the bottom of the window `below`; the item that the user chooses, null
/// when the menu is left.
MenuItem* ChooseFromMenu(const Menu& menu, HWND dialog, HWND below) {
  const OwnedMenu window(CreatePopupMenu());
  UINT_PTR id = 0;
  for (const MenuItem* item : menu.Items())
    AppendMenuW(window.get(), item->Enabled() ? MF_STRING : MF_STRING | MF_GRAYED, ++id,
                Wide(item->Caption()));
  TPMPARAMS around = {.cbSize = sizeof around};
  GetWindowRect(below, &around.rcExclude);
  const int chosen = TrackPopupMenuEx(
      window.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_VERTICAL,
      around.rcExclude.left, around.rcExclude.bottom, dialog, &around);
  return chosen > 0 ? menu.Items()[static_cast<std::size_t>(chosen) - 1] : nullptr;
}

}  // namespace

DialogPeer::DialogPeer(Desktop& desktop, DialogSession& session, Form& form)
    : desktop_(desktop), session_(session), form_(form) {}

void DialogPeer::Run(HWND owner) {
  const DialogLook look;
  const Text name(form_.ClassName());
  const INT_PTR result =
      DialogBoxParamW(ThisModule(), Wide(name), owner, Procedure, reinterpret_cast<LPARAM>(this));
  std::erase(session_.Open, dialog_);  // the dialog may have been ended by others
  form_.Close();
  form_.Detach();
  if (failure_) std::rethrow_exception(failure_);
  if (result == -1) ThrowUnfit(form_, u"there is no such template");
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
  try {
    result = Handle(message, wparam, lparam);
  } catch (...) {
    failure_ = std::current_exception();
    form_.Close();
  }
  if (!form_.IsOpen()) {
    has_ended_ = true;
    std::erase(session_.Open, dialog_);
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
  }
  return FALSE;
}

void DialogPeer::OnInit() {
  session_.Open.push_back(dialog_);
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
  if (!GetWindow(dialog_, GW_OWNER)) SetForegroundWindow(dialog_);
  SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetNextDlgTabItem(dialog_, nullptr, FALSE)),
               TRUE);
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
  last_focus_ = GetFocus();
  if (ControlPeer* peer = ReachablePeer(id)) peer->OnCommand(code);
  if (id == IDCANCEL && !controls_.contains(id)) form_.CloseByUser();
  KeepFocusReachable();
}

void DialogPeer::OnNotify(const NMHDR& notification) {
  last_focus_ = GetFocus();
  if (ControlPeer* peer = ReachablePeer(static_cast<int>(notification.idFrom))) peer->OnNotify(notification);
  KeepFocusReachable();
}

void DialogPeer::OnTimer(std::size_t index) {
  last_focus_ = GetFocus();
  if (index < timers_.size()) timers_[index]->Fire();
  KeepFocusReachable();
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
    SetTimer(dialog_, index, static_cast<UINT>(timer.Interval), nullptr);
  else
    KillTimer(dialog_, index);
}

void DialogPeer::Resized() {
  for (const auto& [control, peer] : peers_) peer->OnResized();
}

// The keyboard would be lost with a focus in a window that has been hidden or disabled.
void DialogPeer::KeepFocusReachable() {
  if (!form_.IsOpen() || !last_focus_ || !IsChild(dialog_, last_focus_) || IsReachable(last_focus_)) return;
  const HWND next = GetNextDlgTabItem(dialog_, last_focus_, FALSE);
  SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
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
  const ControlPeer* peer = PeerOf(control);
  if (peer) SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(peer->Window()), TRUE);
}

void DialogPeer::PopUp(Menu& menu, Control& below) {
  MenuItem* chosen = ChooseFromMenu(menu, dialog_, PeerOf(below)->Window());
  if (chosen) menu.Choose(*chosen);
}

}  // namespace kestrune
