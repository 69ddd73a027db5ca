// The thread of the windows, as another thread has things done there: in whichever message loop it is, that
// of the program, of a dialog, of a message box or of a menu.
#pragma once

#include <functional>
#include <future>
#include <vector>
#include <windows.h>

namespace kestrune::standins {

class UiThread {
 public:
  /// The calling thread is it.
  UiThread();
  UiThread(const UiThread&) = delete;
  UiThread& operator=(const UiThread&) = delete;
  ~UiThread();

  /// Has `work` done as soon as the thread asks for messages; the result throws what the work has thrown.
  std::future<void> Post(std::function<void()> work) const;
  /// The shown windows of a class that the thread has; may be asked from any thread.
  std::vector<HWND> ShownWindows(const wchar_t* window_class) const;

 private:
  DWORD thread_ = GetCurrentThreadId();
  HWND window_;
};

}  // namespace kestrune::standins
