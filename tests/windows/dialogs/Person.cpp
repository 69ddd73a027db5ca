#include "tests/windows/dialogs/Person.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <exception>
#include <thread>
// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the one above
// clang-format on

#include "platform/com/ComText.h"

namespace kestrune::testing {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kLimit = std::chrono::seconds(20);
constexpr auto kPause = std::chrono::milliseconds(5);

/// The window's title as the system knows it: its thread, which may hang, is not asked.
Text TitleOf(HWND window) {
  wchar_t title[200] = {};
  return Text(FromWide({title, static_cast<std::size_t>(InternalGetWindowText(window, title, 200))}));
}

BOOL CALLBACK AddTitle(HWND window, LPARAM titles) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  const bool is_ours = process == GetCurrentProcessId() && IsWindowVisible(window);
  const HWND said = GetDlgItem(window, 0xFFFF);
  if (is_ours)
    *reinterpret_cast<Text*>(titles) +=
        u"[" + TitleOf(window) + (said ? u": " + TitleOf(said) : Text()) + u"]";
  return TRUE;
}

/// The titles of the windows that the process still shows, and what a message box says.
Text OpenTitles() {
  Text titles;
  EnumWindows(AddTitle, reinterpret_cast<LPARAM>(&titles));
  return titles;
}

[[noreturn]] void GiveUp(const Text& title, const char* what) {
  std::fprintf(stderr, "The dialog \"%s\" hangs: %s. Open are: %s\n", ToUtf8(title).c_str(), what,
               ToUtf8(OpenTitles()).c_str());
  std::fflush(stderr);
  TerminateProcess(GetCurrentProcess(), 3);
  std::abort();
}

/// The person's own windows, such as those of DOORS, must answer to be brought to the front.
void AnswerOwnMessages() {
  MSG message = {};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

void AwaitFor(const Text& title, const char* what, const std::function<bool()>& condition) {
  const auto end = Clock::now() + kLimit;
  while (!condition()) {
    if (Clock::now() > end) GiveUp(title, what);
    AnswerOwnMessages();
    std::this_thread::sleep_for(kPause);
  }
}

struct Search {
  const Text& title;
  HWND found = nullptr;
};

BOOL CALLBACK OnWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process == GetCurrentProcessId() && IsWindowVisible(window) && IsWindowEnabled(window) &&
      TitleOf(window) == search.title)
    search.found = window;
  return search.found == nullptr;
}

HWND UsableWindow(const Text& title) {
  Search search{title};
  EnumWindows(OnWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

void SendKey(WORD key, WORD unit, DWORD flags) {
  INPUT input = {.type = INPUT_KEYBOARD};
  input.ki.wVk = key;
  input.ki.wScan = unit ? unit : static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

void SendMouse(POINT at, DWORD flags) {
  INPUT input = {.type = INPUT_MOUSE};
  input.mi.dx = at.x * 65536 / GetSystemMetrics(SM_CXSCREEN) + 1;
  input.mi.dy = at.y * 65536 / GetSystemMetrics(SM_CYSCREEN) + 1;
  input.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;  // the pointer may have been elsewhere
  SendInput(1, &input, sizeof input);
}

}  // namespace

void WithPerson(const std::function<void()>& person, const std::function<void()>& show) {
  // Wine: the first call of a thread must not come from two threads at once, and input that comes before the
  // desktop answers is lost.
  SendMessageW(GetDesktopWindow(), WM_NULL, 0, 0);
  std::atomic<bool> is_shown = true;
  std::thread thread([&] {
    person();
    const auto end = Clock::now() + kLimit;
    while (is_shown) {
      if (Clock::now() > end) GiveUp(u"left open", "the person has gone");
      std::this_thread::sleep_for(kPause);
    }
  });
  std::exception_ptr failure;
  try {
    show();
  } catch (...) {
    failure = std::current_exception();
  }
  is_shown = false;
  thread.join();
  if (failure) std::rethrow_exception(failure);
}

Screen::Screen(TextView title) : title_(title) {
  AwaitFor(title_, "it does not appear", [&] { return (window_ = UsableWindow(title_)) != nullptr; });
  AwaitFor(title_, "it does not come to the front", [&] { return GetForegroundWindow() == window_; });
}

HWND Screen::At(int id) const {
  const HWND control = GetDlgItem(window_, id);
  if (!control) GiveUp(title_, ("it has no control " + std::to_string(id)).c_str());
  return control;
}

// The window's own thread answers, after all that it has been sent before.
Text Screen::TextAt(int id) const {
  Text text(static_cast<std::size_t>(Ask(id, WM_GETTEXTLENGTH)) + 1, u'\0');
  text.resize(
      static_cast<std::size_t>(Ask(id, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

LRESULT Screen::Ask(int id, UINT message, WPARAM wparam, LPARAM lparam) const {
  return SendMessageW(At(id), message, wparam, lparam);
}

std::vector<Text> Screen::LinesOf(int list_id) const {
  std::vector<Text> lines(static_cast<std::size_t>(Ask(list_id, LB_GETCOUNT)));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    lines[i].resize(static_cast<std::size_t>(Ask(list_id, LB_GETTEXTLEN, i)));
    Ask(list_id, LB_GETTEXT, i, reinterpret_cast<LPARAM>(lines[i].data()));
  }
  return lines;
}

int Screen::FocusedId() const {
  GUITHREADINFO info = {.cbSize = sizeof info};
  GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
  HWND control = info.hwndFocus;
  while (control && GetParent(control) != window_) control = GetParent(control);  // the text of a combo box
  return control ? GetDlgCtrlID(control) : 0;
}

std::set<int> Screen::TabStops() const {
  std::set<int> ids;
  for (HWND each = GetWindow(window_, GW_CHILD); each; each = GetWindow(each, GW_HWNDNEXT)) {
    const LONG style = GetWindowLongW(each, GWL_STYLE);
    if ((style & (WS_TABSTOP | WS_VISIBLE | WS_DISABLED)) == (WS_TABSTOP | WS_VISIBLE))
      ids.insert(GetDlgCtrlID(each));
  }
  return ids;
}

void Screen::Await(const char* what, const std::function<bool()>& condition) const {
  AwaitFor(title_, what, condition);
}

void Screen::AwaitEnabled(int id) const {
  Await("a control does not become enabled", [&] { return IsWindowEnabled(At(id)) != FALSE; });
}

void Screen::AwaitClosed() const {
  Await("it does not close", [&] { return !IsWindow(window_); });
}

void Screen::ClickAt(HWND window, RECT inside) const {
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&inside), 2);
  const POINT middle = {(inside.left + inside.right) / 2, (inside.top + inside.bottom) / 2};
  for (const DWORD flags : {0, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) SendMouse(middle, flags);
}

void Screen::Click(int id) const {
  RECT inside = {};
  GetClientRect(At(id), &inside);
  ClickAt(At(id), inside);
}

void Screen::ClickLine(int list_id, int line) const {
  RECT inside = {};
  Ask(list_id, LB_GETITEMRECT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&inside));
  ClickAt(At(list_id), inside);
}

void Screen::ClickRow(int list_view_id, int row) const {
  RECT inside = {.left = LVIR_LABEL};
  Ask(list_view_id, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&inside));
  ClickAt(At(list_view_id), inside);
}

void Screen::Hold(WORD key) const {
  SendKey(key, 0, 0);
}

void Screen::Release(WORD key) const {
  SendKey(key, 0, KEYEVENTF_KEYUP);
}

void Screen::Key(WORD key, WORD held) const {
  if (held) Hold(held);
  Hold(key);
  Release(key);
  if (held) Release(held);
}

void Screen::Type(TextView text) const {
  for (const char16_t unit : text) {
    SendKey(0, unit, KEYEVENTF_UNICODE);
    SendKey(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
  }
}

}  // namespace kestrune::testing
