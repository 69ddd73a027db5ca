// A desktop without a screen: it keeps simulated windows, the clipboard and what was asked of it, and lets
// whoever derives from it play the user. Every message box and every nested form makes the timers of the open
// forms tick, as a real message loop would.
#pragma once

#include <memory>

#include "platform/Controls.h"
#include "platform/Desktop.h"

namespace kestrune::standins {

/// A top-level window of another program, such as DOORS.
struct SimulatedWindow {
  Text class_name;
  std::uint32_t style = 0;
  bool visible = true;
  bool minimized = false;
};

class HeadlessDesktop : public Desktop {
 public:
  void ShowModal(Form& form) final;
  Answer Show(const Message& message) final;
  std::optional<Text> AskText(const Text& title, const Text& prompt) final;
  void PumpMessages() override { Tick(); }
  void SetWaitCursor(bool on) override { wait_cursor_ = on; }
  std::uint64_t Milliseconds() override { return milliseconds_ += milliseconds_per_look_; }

  void EnumTop(const std::function<bool(WindowHandle)>& visit) override;
  Text ClassOf(WindowHandle window) override { return WindowAt(window).class_name; }
  std::uint32_t StyleOf(WindowHandle window) override { return WindowAt(window).style; }
  bool IsVisible(WindowHandle window) override { return WindowAt(window).visible; }
  WindowHandle Foreground() override { return foreground_; }
  void BringToFront(WindowHandle window) override { foreground_ = window; }
  void Minimize(WindowHandle window) override { WindowAt(window).minimized = true; }

  Text ClipboardText() override { return clipboard_; }
  void SetClipboardText(const Text& text) override { clipboard_ = text; }
  void SetHelpFile(const Text& path) override { help_file_ = path; }
  void ShowHelp(int context) override { help_shown_.push_back(context); }
  void SendHelpKey(Form& form) override { ShowHelp(form.HelpContextID); }
  void StartCommand(const Text& command_line) override { commands_.push_back(command_line); }

  /// Lets the interval of every enabled timer of every open form pass once.
  void Tick();

  /// Windows are numbered from 1 in the order of their making, which is also the order of enumeration.
  WindowHandle AddWindow(SimulatedWindow window);
  SimulatedWindow& WindowAt(WindowHandle window) { return windows_.at(window - 1); }

  /// The clock goes on by as much at every look; it stands still by default.
  void SetMillisecondsPerLook(std::uint64_t milliseconds) { milliseconds_per_look_ = milliseconds; }

  bool WaitCursor() const { return wait_cursor_; }
  const Text& HelpFile() const { return help_file_; }
  int MessagesShown() const { return messages_shown_; }
  const std::vector<int>& HelpShown() const { return help_shown_; }
  const std::vector<Text>& Commands() const { return commands_; }

 protected:
  /// Plays the user of a form that has just opened; returns
  /// when the form is closed. Returning earlier closes it.
  virtual void Use(Form& form) = 0;
  virtual Answer AnswerTo(const Message& message) = 0;
  virtual std::optional<Text> TextFor(const Text& title, const Text& prompt) = 0;
  /// The peer that a form gets for as long as it is shown; none by default.
  virtual std::unique_ptr<FormPeer> PeerFor(Form&) { return nullptr; }

 private:
  std::vector<Form*> open_forms_;
  std::vector<SimulatedWindow> windows_;
  WindowHandle foreground_ = 0;
  int messages_shown_ = 0;
  bool wait_cursor_ = false;
  std::uint64_t milliseconds_ = 0, milliseconds_per_look_ = 0;
  Text clipboard_;
  Text help_file_;
  std::vector<int> help_shown_;
  std::vector<Text> commands_;
};

}  // namespace kestrune::standins
