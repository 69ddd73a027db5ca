#include "standins/windows/screen/StillClock.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace kestrune::standins {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPause = std::chrono::milliseconds(2);
constexpr auto kLongerThanAnyInterval = std::chrono::milliseconds(500);

bool IsDialog(HWND window) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  return std::wstring(L"#32770") == name;
}

}  // namespace

StillClock::StillClock() {
  if (clock_) throw std::logic_error("There is a still clock already.");
  hook_ = SetWindowsHookExW(WH_GETMESSAGE, OnRetrieved, nullptr, GetCurrentThreadId());
  if (!hook_) throw std::runtime_error("The clock cannot be stopped.");
  clock_ = this;
}

StillClock::~StillClock() {
  UnhookWindowsHookEx(hook_);
  clock_ = nullptr;
}

LRESULT CALLBACK StillClock::OnRetrieved(int code, WPARAM removed, LPARAM message) {
  if (code == HC_ACTION && removed == PM_REMOVE) clock_->HoldBack(*reinterpret_cast<MSG*>(message));
  return CallNextHookEx(nullptr, code, removed, message);
}

void StillClock::HoldBack(MSG& message) {
  if (message.message != WM_TIMER || message.lParam || !IsDialog(message.hwnd)) return;
  message.message = WM_NULL;
  const DueTimer timer{message.hwnd, message.wParam};
  const std::lock_guard lock(mutex_);
  if (std::find(due_.begin(), due_.end(), timer) == due_.end()) due_.push_back(timer);
}

void StillClock::AwaitInterval() {
  TakeDue();
  const auto end = Clock::now() + kLongerThanAnyInterval;
  while (!HasDue() && Clock::now() < end) std::this_thread::sleep_for(kPause);
}

void StillClock::Tick() {
  for (const DueTimer& timer : TakeDue()) SendMessageW(timer.dialog, WM_TIMER, timer.id, 0);
}

std::vector<StillClock::DueTimer> StillClock::TakeDue() {
  const std::lock_guard lock(mutex_);
  return std::exchange(due_, {});
}

bool StillClock::HasDue() {
  const std::lock_guard lock(mutex_);
  return !due_.empty();
}

}  // namespace kestrune::standins
