// The system's viewer of compiled help files. Its library is loaded with the first topic: there
// are machines without it.
#pragma once

#include <windows.h>

#include "platform/Text.h"

namespace kestrune {

class HelpViewer {
 public:
  HelpViewer() = default;
  /// Closes the windows of the help.
  ~HelpViewer();
  HelpViewer(const HelpViewer&) = delete;
  HelpViewer& operator=(const HelpViewer&) = delete;

  void SetFile(const Text& path) { file_ = path; }
  /// Opens the file at a topic; nothing happens where there is no viewer or no such file.
  void Show(int context);

 private:
  using Function = HWND(WINAPI*)(HWND, const char*, UINT, DWORD_PTR);
  Text file_;
  Function html_help_ = nullptr;
};

}  // namespace kestrune
