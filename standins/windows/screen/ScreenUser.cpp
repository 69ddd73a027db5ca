#include "standins/windows/screen/ScreenUser.h"

#include <algorithm>
#include <cstdio>
#include <ostream>
#include <thread>

#include "standins/desktop/ConsoleDesktop.h"

namespace kestrune::standins {

using play::Statement;

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPause = std::chrono::milliseconds(2);
constexpr auto kLongestPause = std::chrono::milliseconds(50);
constexpr int kMessageText = 0xFFFF;  // the id of a message box's text
constexpr const wchar_t* kDialogClass = L"#32770";
constexpr const wchar_t* kMenuClass = L"#32768";

bool IsOver(const std::future<void>& done, std::chrono::milliseconds within = kPause) {
  return done.wait_for(within) == std::future_status::ready;
}

HWND ButtonOf(HWND box, Answer answer) {
  if (answer == Answer::kYes) return GetDlgItem(box, IDYES);
  if (answer == Answer::kNo) return GetDlgItem(box, IDNO);
  const HWND ok = GetDlgItem(box, IDOK);
  return ok ? ok : GetDlgItem(box, IDCANCEL);  // a box with nothing but OK may have it as its Cancel
}

Message MessageIn(HWND box) {
  return {.Body = StateOf(GetDlgItem(box, kMessageText)).content,
          .Title = TitleOf(box),
          .Buttons = ButtonOf(box, Answer::kYes) ? Buttons::kYesNo : Buttons::kOk};
}

}  // namespace

void ScreenUser::Play(play::Script script, std::vector<play::Command> commands) {
  player_ = std::make_unique<play::Player>(std::move(script), AtScreen(std::move(commands)), desktop_);
  std::packaged_task<void()> play([this] { player_->Play(); });
  Done played = play.get_future();
  std::thread user([&] {
    play();
    ui_.Post([] {});  // the loop looks whether the play is over
  });
  RunLoop(played);
  user.join();
  player_.reset();
  played.get();
}

std::vector<play::Command> ScreenUser::AtScreen(std::vector<play::Command> commands) {
  for (play::Command& command : commands) {
    if (command.during_dialogs) continue;
    command.run = [this, run = command.run](const Statement& line) { Do([=] { run(line); }); };
  }
  return commands;
}

void ScreenUser::RunLoop(const Done& played) const {
  MSG message = {};
  while (played.wait_for(std::chrono::seconds(0)) != std::future_status::ready &&
         GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void ScreenUser::Do(std::function<void()> work) {
  LeaveMenu();
  Finish(ui_.Post(PrintingAfter(std::move(work))));
}

void ScreenUser::Look(std::function<void()> look) {
  Finish(ui_.Post(std::move(look)));
}

void ScreenUser::Wait() {
  clock_.AwaitInterval();
  Do([this] { clock_.Tick(); });
}

HWND ScreenUser::OpenMenu() const {
  const auto menus = ui_.ShownWindows(kMenuClass);
  return menus.empty() ? nullptr : menus.front();
}

void ScreenUser::Choose(std::size_t item) {
  const HWND menu = OpenMenu();
  for (std::size_t at = 0; at <= item; ++at) PostMessageW(menu, WM_KEYDOWN, VK_DOWN, 0);
  PostMessageW(menu, WM_KEYDOWN, VK_RETURN, 0);
  AwaitMenuClosed();
  Finish(std::move(menu_opener_));
}

void ScreenUser::LeaveMenu() {
  if (!menu_opener_.valid()) return;
  ui_.Post([] { EndMenu(); });
  AwaitMenuClosed();
  Finish(std::move(menu_opener_));
}

void ScreenUser::AwaitMenuClosed() {
  const auto end = Clock::now() + settings_.limit;
  while (OpenMenu()) {
    if (Clock::now() > end) GiveUp();
    std::this_thread::sleep_for(kPause);
  }
}

void ScreenUser::Finish(Done done) {
  try {
    Await(done);
  } catch (...) {
    Abandon(done);
    throw;
  }
  if (IsOver(done)) return done.get();
  menu_opener_ = std::move(done);
}

void ScreenUser::Await(const Done& done) {
  auto end = Clock::now() + settings_.limit;
  // Looking for windows takes the system's time, which long work needs.
  for (auto pause = kPause; !IsOver(done, pause); pause = std::min(pause + kPause, kLongestPause)) {
    if (!menu_opener_.valid() && OpenMenu()) return;
    if (const HWND window = Arrival()) {
      Attend(window);
      end = Clock::now() + settings_.limit;
      pause = kPause;
    }
    if (Clock::now() > end) GiveUp();
  }
}

// What runs behind a dialog goes on when that has closed, and may open others.
void ScreenUser::Abandon(const Done& done) {
  menu_opener_ = {};
  const auto end = Clock::now() + settings_.limit;
  while (!IsOver(done)) {
    const Done closed = ui_.Post([this] { CloseAll(); });
    while (!IsOver(closed) && !IsOver(done))
      if (Clock::now() > end) GiveUp();
  }
}

void ScreenUser::CloseAll() const {
  EndMenu();
  for (const HWND window : ui_.ShownWindows(kDialogClass)) EndDialog(window, IDNO);
}

HWND ScreenUser::Arrival() const {
  for (const HWND window : ui_.ShownWindows(kDialogClass)) {
    const bool is_in_use =
        std::any_of(in_use_.begin(), in_use_.end(), [=](const InUse& each) { return each.window == window; });
    if (!is_in_use && IsWindowEnabled(window)) return window;
  }
  return nullptr;
}

void ScreenUser::Attend(HWND window) {
  struct Leave {
    ~Leave() { windows.pop_back(); }
    std::vector<InUse>& windows;
  };
  WindowDialog dialog(window, settings_.names, settings_.by, *this);
  const HWND list = dialog.FindControl(settings_.printed_list);
  in_use_.push_back({window, list ? std::make_shared<PrintedList>(list, out_) : nullptr});
  const Leave leave{in_use_};
  if (dialog.FindControl(u"txtEntry")) return FillIn(dialog);
  if (!dialog.IsForm() && GetDlgItem(window, kMessageText)) return AnswerBox(window);
  player_->Use(dialog);
}

void ScreenUser::AnswerBox(HWND box) {
  Message message;
  Look(PrintingAfter([&] { message = MessageIn(box); }));
  err_ << "[" << ForTerminal(message.Title) << "] " << ForTerminal(message.Body) << std::endl;
  const HWND button = ButtonOf(box, player_->Decide(message));
  Do([this, button] { settings_.by.press(button); });
}

void ScreenUser::FillIn(WindowDialog& box) {
  const auto entry = player_->Enter(box.Caption());
  if (entry) box.Do({.verb = u"type", .names = {u"txtEntry"}, .texts = {*entry}});
  box.Do({.verb = u"press", .names = {entry ? u"cmdOK" : u"cmdCancel"}});
}

// A window that has been closed is there until the work is over, and so are its lines.
std::function<void()> ScreenUser::PrintingAfter(std::function<void()> work) const {
  return [work = std::move(work), windows = in_use_] {
    work();
    for (const InUse& each : windows)
      if (each.list) each.list->PrintNew();
  };
}

void ScreenUser::GiveUp() const {
  Text open;
  for (const HWND window : ui_.ShownWindows(kDialogClass)) open += u"[" + TitleOf(window) + u"]";
  const Text hanging =
      in_use_.empty() ? u"The program" : u"The dialog \"" + TitleOf(in_use_.back().window) + u"\"";
  err_ << ToUtf8(hanging) << " hangs. Open are: " << ToUtf8(open) << std::endl;
  TerminateProcess(GetCurrentProcess(), kHangs);
  std::abort();
}

}  // namespace kestrune::standins
