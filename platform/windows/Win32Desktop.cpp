#include "platform/windows/Win32Desktop.h"

#include "platform/Controls.h"
#include "platform/ResourceStore.h"
#include "platform/com/Failure.h"
#include "platform/windows/Clipboard.h"
#include "platform/windows/TopWindows.h"
#include "platform/windows/WindowText.h"

namespace kestrune {

namespace {

DWORD BoxStyleOf(const Message& message, HWND owner) {
  static constexpr DWORD kIcons[] = {MB_ICONSTOP, MB_ICONEXCLAMATION, MB_ICONQUESTION, MB_ICONINFORMATION};
  return kIcons[static_cast<int>(message.Icon)] | (message.Buttons == Buttons::kYesNo ? MB_YESNO : MB_OK) |
         (message.HelpContext ? MB_HELP : 0) | MB_SETFOREGROUND | (owner ? 0 : MB_TASKMODAL);
}

/// A dialog that asks for one line of text.
class frmInput : public Form {
 public:
  frmInput(const Text& title, const Text& prompt) {
    SetCaption(title);
    lblPrompt.SetCaption(prompt);
    cmdOK.Click = [this] {
      Entry = txtEntry.Value();
      Close();
    };
    cmdCancel.Click = [this] { Close(); };
    cmdOK.SetCaption(StoredString(stored::kOk));
    cmdCancel.SetCaption(StoredString(stored::kCancel));
  }

  TextView ClassName() const override { return u"frmInput"; }

  /// What the user has entered; nothing unless OK was pressed.
  std::optional<Text> Entry;

 private:
  Label lblPrompt{this, u"lblPrompt"};
  TextBox txtEntry{this, u"txtEntry"};
  Button cmdOK{this, u"cmdOK"};
  Button cmdCancel{this, u"cmdCancel"};
};

}  // namespace

void Win32Desktop::ShowModal(Form& form) {
  DialogPeer(*this, session_, form).Run(Owner());
}

Answer Win32Desktop::Show(const Message& message) {
  const DialogLook look;
  const HWND owner = Owner();
  const Modality modality(owner);
  const NoWait no_wait(session_);
  // A Help button asks the owner by WM_HELP with the message's topic.
  const MSGBOXPARAMSW box = {.cbSize = sizeof box,
                             .hwndOwner = owner,
                             .lpszText = Wide(message.Body),
                             .lpszCaption = Wide(message.Title),
                             .dwStyle = BoxStyleOf(message, owner),
                             .dwContextHelpId = static_cast<DWORD_PTR>(message.HelpContext)};
  const int pressed = MessageBoxIndirectW(&box);
  if (message.Buttons == Buttons::kOk) return Answer::kOk;
  return pressed == IDYES ? Answer::kYes : Answer::kNo;
}

std::optional<Text> Win32Desktop::AskText(const Text& title, const Text& prompt) {
  frmInput form(title, prompt);
  ShowModal(form);
  return form.Entry;
}

void Win32Desktop::PumpMessages() {
  MSG message = {};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
    if (!session_.Open.empty() && IsDialogMessageW(session_.Open.back(), &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void Win32Desktop::SetWaitCursor(bool on) {
  session_.ShowWaiting(on);
}

void Win32Desktop::EnumTop(const std::function<bool(WindowHandle)>& visit) {
  VisitTopWindows([&](HWND window) { return visit(HandleOf(window)); });
}

Text Win32Desktop::ClassOf(WindowHandle window) {
  return WindowClassOf(WindowOf(window));
}

std::uint32_t Win32Desktop::StyleOf(WindowHandle window) {
  return static_cast<std::uint32_t>(GetWindowLongA(WindowOf(window), GWL_STYLE));
}

bool Win32Desktop::IsVisible(WindowHandle window) {
  return IsWindowVisible(WindowOf(window)) != FALSE;
}

WindowHandle Win32Desktop::Foreground() {
  return HandleOf(GetForegroundWindow());
}

void Win32Desktop::BringToFront(WindowHandle window) {
  SetForegroundWindow(WindowOf(window));
}

void Win32Desktop::Minimize(WindowHandle window) {
  ShowWindow(WindowOf(window), SW_MINIMIZE);
}

Text Win32Desktop::ClipboardText() {
  return ReadClipboard(Owner());
}

void Win32Desktop::SetClipboardText(const Text& text) {
  WriteClipboard(Owner(), text);
}

void Win32Desktop::ShowHelp(int context) {
  const int failure = help_.Show(context);
  if (!failure) return;
  Show({.Body = StoredString(failure, help_.File()),
        .Title = StoredString(stored::kTitle),
        .Icon = Icon::kExclamation});
}

void Win32Desktop::StartCommand(const Text& command_line) {
  Text line = command_line;  // the system writes into it
  STARTUPINFOW start = {.cb = sizeof start, .dwFlags = STARTF_USESHOWWINDOW, .wShowWindow = SW_SHOWNORMAL};
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, reinterpret_cast<wchar_t*>(line.data()), nullptr, nullptr, FALSE,
                      DETACHED_PROCESS, nullptr, nullptr, &start, &process))
    ThrowLastError();
  const OwnedHandle thread(process.hThread);
  const OwnedHandle started(process.hProcess);
}

HWND Win32Desktop::Owner() const {
  if (!session_.Open.empty()) return session_.Open.back();
  return IsWindow(host_) ? host_ : HostWindow();
}

}  // namespace kestrune
