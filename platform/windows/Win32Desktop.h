// The user's desktop as Windows has it. One object serves the thread of the host's user interface.
#pragma once

#include "platform/windows/DialogPeer.h"
#include "platform/windows/HelpViewer.h"

namespace kestrune {

class Win32Desktop : public Desktop {
 public:
  void ShowModal(Form& form) override;
  Answer Show(const Message& message) override;
  std::optional<Text> AskText(const Text& title, const Text& prompt) override;
  void PumpMessages() override;
  void SetWaitCursor(bool on) override;
  std::uint64_t Milliseconds() override { return GetTickCount64(); }

  void EnumTop(const std::function<bool(WindowHandle)>& visit) override;
  Text ClassOf(WindowHandle window) override;
  std::uint32_t StyleOf(WindowHandle window) override;
  bool IsVisible(WindowHandle window) override;
  WindowHandle Foreground() override;
  void BringToFront(WindowHandle window) override;
  void Minimize(WindowHandle window) override;

  Text ClipboardText() override;
  void SetClipboardText(const Text& text) override;

  void SetHelpFile(const Text& path) override { help_.SetFile(path); }
  void ShowHelp(int context) override { help_.Show(context); }
  void SendHelpKey(Form& form) override;

  /// Throws AutomationError when the program cannot be started.
  void StartCommand(const Text& command_line) override;

 private:
  /// The window that a new dialog keeps the user from: the innermost of ours, else the host's.
  HWND Owner() const;

  DialogSession session_;
  HelpViewer help_;
};

}  // namespace kestrune
