// What the open dialogs share.
#pragma once

#include <vector>
#include <windows.h>

namespace kestrune {

struct DialogSession {
  std::vector<HWND> Open;  // the innermost last
  bool IsWaiting = false;  // shows the wait cursor
  void ShowWaiting(bool on);
};

/// The wait cursor rests while a dialog waits for the user.
class NoWait {
 public:
  explicit NoWait(DialogSession& session);
  ~NoWait();
  NoWait(const NoWait&) = delete;
  NoWait& operator=(const NoWait&) = delete;

 private:
  DialogSession& session_;
  bool was_waiting_;
};

}  // namespace kestrune
