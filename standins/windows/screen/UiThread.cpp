#include "standins/windows/screen/UiThread.h"

#include <string>
#include <system_error>
#include <vector>

#include "platform/windows/Module.h"

namespace kestrune::standins {

namespace {

using Task = std::packaged_task<void()>;

constexpr const wchar_t* kClass = L"KestruneUiThread";
constexpr UINT kDo = WM_APP;

[[noreturn]] void ThrowLastError(const char* what) {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), what);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message != kDo) return DefWindowProcW(window, message, wparam, lparam);
  const std::unique_ptr<Task> task(reinterpret_cast<Task*>(lparam));
  (*task)();
  return 0;
}

struct Search {
  std::wstring class_name;
  std::vector<HWND> found;
};

BOOL CALLBACK OnWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  if (IsWindowVisible(window) && search.class_name == name) search.found.push_back(window);
  return TRUE;
}

}  // namespace

UiThread::UiThread() {
  const WNDCLASSW description = {
      .lpfnWndProc = OnMessage, .hInstance = ThisModule(), .lpszClassName = kClass};
  RegisterClassW(&description);
  window_ = CreateWindowW(kClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, ThisModule(), nullptr);
  if (!window_) ThrowLastError("no message window");
}

UiThread::~UiThread() {
  DestroyWindow(window_);
}

std::future<void> UiThread::Post(std::function<void()> work) const {
  auto task = std::make_unique<Task>(std::move(work));
  auto result = task->get_future();
  if (!PostMessageW(window_, kDo, 0, reinterpret_cast<LPARAM>(task.get()))) ThrowLastError("no message");
  task.release();  // the thread has it
  return result;
}

std::vector<HWND> UiThread::ShownWindows(const wchar_t* window_class) const {
  Search search{window_class, {}};
  EnumThreadWindows(thread_, OnWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace kestrune::standins
