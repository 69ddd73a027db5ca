// The user's desktop as Windows has it. One object serves the thread of the host's user interface.
#pragma once

#include "platform/windows/DialogPeer.h"
#include "platform/windows/HelpViewer.h"
#include "platform/windows/Modality.h"

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
  void ShowHelp(int context) override;
  void SendHelpKey(Form& form) override { ShowHelp(form.HelpContextID); }

  /// Throws AutomationError when the program cannot be started.
  void StartCommand(const Text& command_line) override;

 protected:
  void CallbackBegins() override { host_ = HostWindow(); }
  void CallbackEnds() override { host_ = nullptr; }

 private:
  /// The window to which a new dialog belongs: the innermost dialog of ours, else the host's.
  HWND Owner() const;

  DialogSession session_;
  HWND host_ = nullptr;  // during a callback
  HelpViewer help_;
};

}  // namespace kestrune
