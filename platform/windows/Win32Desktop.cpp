#include "platform/windows/Win32Desktop.h"

#include "platform/Automation.h"
#include "platform/windows/Clipboard.h"
#include "platform/windows/InputBox.h"
#include "platform/windows/MessageBoxes.h"
#include "platform/windows/TopWindows.h"
#include "platform/windows/WindowText.h"

namespace kestrune {

void Win32Desktop::ShowModal(Form& form) {
  DialogPeer(*this, session_, form).Run(Owner());
}

Answer Win32Desktop::Show(const Message& message) {
  return ShowMessageBox(message, Owner());
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
  session_.IsWaiting = on;
  SetCursor(LoadCursorW(nullptr, on ? IDC_WAIT : IDC_ARROW));
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

void Win32Desktop::SendHelpKey(Form&) {
  INPUT keys[2] = {};
  for (INPUT& key : keys) {
    key.type = INPUT_KEYBOARD;
    key.ki.wVk = VK_F1;
  }
  keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(2, keys, sizeof keys[0]);
}

void Win32Desktop::StartCommand(const Text& command_line) {
  Text line = command_line;  // the system writes into it
  STARTUPINFOW start = {.cb = sizeof start, .dwFlags = STARTF_USESHOWWINDOW, .wShowWindow = SW_SHOWNORMAL};
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, reinterpret_cast<wchar_t*>(line.data()), nullptr, nullptr, FALSE,
                      DETACHED_PROCESS, nullptr, nullptr, &start, &process)) {
    const HRESULT result = HRESULT_FROM_WIN32(GetLastError());
    throw AutomationError(static_cast<std::uint32_t>(result), u"Desktop", SystemMessage(result));
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

HWND Win32Desktop::Owner() const {
  return session_.Open.empty() ? GetActiveWindow() : session_.Open.back();
}

}  // namespace kestrune
