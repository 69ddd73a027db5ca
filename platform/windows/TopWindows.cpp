#include "platform/windows/TopWindows.h"

#include <exception>

namespace kestrune {

namespace {

struct Visit {
  const std::function<bool(HWND)>& Do;
  std::exception_ptr Failure;  // no exception passes through the system
};

BOOL CALLBACK OnWindow(HWND window, LPARAM parameter) {
  auto& visit = *reinterpret_cast<Visit*>(parameter);
  try {
    return visit.Do(window);
  } catch (...) {
    visit.Failure = std::current_exception();
    return FALSE;
  }
}

}  // namespace

void VisitTopWindows(const std::function<bool(HWND)>& visit) {
  Visit each{visit, nullptr};
  EnumWindows(OnWindow, reinterpret_cast<LPARAM>(&each));
  if (each.Failure) std::rethrow_exception(each.Failure);
}

WindowHandle HandleOf(HWND window) {
  return HandleToULong(window);
}

HWND WindowOf(WindowHandle handle) {
  return static_cast<HWND>(LongToHandle(static_cast<LONG>(handle)));
}

}  // namespace kestrune
