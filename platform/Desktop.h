// Everything that an add-in asks of the user's desktop: dialogs, windows, clipboard, help, foreground.
// platform/windows/ asks the system; the stand-ins have desktops that nobody looks at.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/Text.h"

namespace kestrune {

class Form;

/// A top-level window of the system; 0 is none.
using WindowHandle = std::uint32_t;

enum class Icon { kStop, kExclamation, kQuestion, kInformation };
enum class Buttons { kOk, kYesNo };
enum class Answer { kOk, kYes, kNo };

struct Message {
  Text Body;
  Text Title;
  enum Icon Icon = Icon::kInformation;
  enum Buttons Buttons = Buttons::kOk;
  int HelpContext = 0;  // not 0: the box has a Help button as well, which opens this topic
};

class Desktop {
 public:
  /// The time from a call of the host's to its return. Dialogs belong meanwhile to the window that was active
  /// when it began, whatever becomes active later. Calls that come during another are part of that one.
  class Callback {
   public:
    explicit Callback(Desktop& desktop);
    ~Callback();
    Callback(const Callback&) = delete;
    Callback& operator=(const Callback&) = delete;

   private:
    Desktop& desktop_;
  };

  virtual ~Desktop() = default;

  /// Loads and shows `form`; returns when it has been closed. What a handler throws ends the
  /// dialog and is thrown on.
  virtual void ShowModal(Form& form) = 0;
  /// Shows a message box and waits for its button.
  virtual Answer Show(const Message& message) = 0;
  /// Shows a message box unless one with this text has been shown during the callback.
  void ShowOnce(const Message& message);
  /// Shows an input box; nothing when the user cancels it.
  virtual std::optional<Text> AskText(const Text& title, const Text& prompt) = 0;
  /// Lets pending window messages run; timers may tick meanwhile.
  virtual void PumpMessages() = 0;
  virtual void SetWaitCursor(bool on) = 0;
  /// The time since some moment in the past.
  virtual std::uint64_t Milliseconds() = 0;

  /// Calls `visit` for each top-level window, in the system's order, until it returns false.
  virtual void EnumTop(const std::function<bool(WindowHandle)>& visit) = 0;
  virtual Text ClassOf(WindowHandle window) = 0;
  virtual std::uint32_t StyleOf(WindowHandle window) = 0;
  virtual bool IsVisible(WindowHandle window) = 0;
  virtual WindowHandle Foreground() = 0;
  virtual void BringToFront(WindowHandle window) = 0;
  virtual void Minimize(WindowHandle window) = 0;

  virtual Text ClipboardText() = 0;
  virtual void SetClipboardText(const Text& text) = 0;

  /// The help file that every help request of the process opens.
  virtual void SetHelpFile(const Text& path) = 0;
  /// Opens the help file at a topic; tells the user where there is none.
  virtual void ShowHelp(int context) = 0;
  /// Does what F1 does in `form`: opens the form's own topic. The key itself would be another one for as long
  /// as the user holds Alt, to reach the Help button.
  virtual void SendHelpKey(Form& form) = 0;

  /// Starts a program with a normal, focused window and does not wait for it.
  virtual void StartCommand(const Text& command_line) = 0;

 protected:
  virtual void CallbackBegins() {}
  virtual void CallbackEnds() {}

 private:
  int callbacks_ = 0;
  std::vector<Text> shown_once_;  // during the callback
};

/// Shows the wait cursor for as long as it lives.
class WaitCursor {
 public:
  explicit WaitCursor(Desktop& desktop) : desktop_(desktop) { desktop_.SetWaitCursor(true); }
  ~WaitCursor() { desktop_.SetWaitCursor(false); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  Desktop& desktop_;
};

}  // namespace kestrune
