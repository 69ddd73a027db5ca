// Plays a script on the screen: a user on a thread of their own, who uses every dialog and answers
// every box that the thread of the windows shows meanwhile. Scripts mean there what they mean on
// forms without a screen: a statement is over when all that it has opened has closed, and time passes
// only where the script lets it.
#pragma once

#include <chrono>
#include <iosfwd>
#include <memory>

#include "platform/windows/Win32Desktop.h"
#include "standins/play/Player.h"
#include "standins/windows/screen/PrintedList.h"
#include "standins/windows/screen/StillClock.h"
#include "standins/windows/screen/UiThread.h"
#include "standins/windows/screen/WindowDialog.h"

namespace kestrune::standins {

/// Belongs to the thread of the windows, which made it and calls Play.
class ScreenUser : private Hands {
 public:
  /// The exit status of a program whose windows do not answer.
  static constexpr int kHangs = 3;

  struct Settings {
    const DialogNames& names = KestruneDialogNames();
    const Means& by = kMouse;
    Text printed_list = u"List1";  // its lines go to `out`, message boxes to `err`
    std::chrono::milliseconds limit = std::chrono::seconds(60);
  };
  ScreenUser(std::ostream& out, std::ostream& err) : ScreenUser(out, err, Settings{}) {}
  ScreenUser(std::ostream& out, std::ostream& err, Settings settings)
      : out_(out), err_(err), settings_(std::move(settings)) {}

  /// Commands run on the thread of the windows, those that go on during dialogs on the user's. Throws
  /// play::ScriptError; every dialog has been closed then, as by Cancel. Where the windows do not answer for
  /// the limit's time, the program ends with status kHangs and says what is open.
  void Play(play::Script script, std::vector<play::Command> commands);

 private:
  using Done = std::future<void>;
  /// A window that is in use, and the list in it that is printed.
  struct InUse {
    HWND window;
    std::shared_ptr<PrintedList> list;
  };

  void Do(std::function<void()> work) override;
  void Look(std::function<void()> look) override;
  void Wait() override;
  HWND OpenMenu() const override;
  void Choose(std::size_t item) override;

  std::vector<play::Command> AtScreen(std::vector<play::Command> commands);
  void RunLoop(const Done& played) const;
  /// Waits for the end of what was posted, using whatever opens; if a menu opens, only until then.
  void Finish(Done done);
  void Await(const Done& done);
  void Abandon(const Done& done);
  void CloseAll() const;
  void LeaveMenu();
  void AwaitMenuClosed();
  HWND Arrival() const;
  void Attend(HWND window);
  void AnswerBox(HWND box);
  void FillIn(WindowDialog& box);
  std::function<void()> PrintingAfter(std::function<void()> work) const;
  [[noreturn]] void GiveUp() const;

  std::ostream& out_;
  std::ostream& err_;
  Settings settings_;
  UiThread ui_;
  StillClock clock_;
  Win32Desktop desktop_;
  std::unique_ptr<play::Player> player_;
  std::vector<InUse> in_use_;  // the innermost last
  Done menu_opener_;           // valid while a menu is open: what opened it
};

}  // namespace kestrune::standins
