// The system's viewer of compiled help files. Its library is loaded with the first topic: there
// are machines without it.
#pragma once

#include <vector>
#include <windows.h>

#include "platform/Text.h"

namespace kestrune {

class HelpViewer {
 public:
  HelpViewer() = default;
  /// Closes the windows that it has opened; the host may have others.
  ~HelpViewer();
  HelpViewer(const HelpViewer&) = delete;
  HelpViewer& operator=(const HelpViewer&) = delete;

  void SetFile(const Text& path) { file_ = path; }
  const Text& File() const { return file_; }
  /// Opens the file at a topic. Returns the id of the text that tells the user why it could not, else 0.
  int Show(int context);

 private:
  using Function = HWND(WINAPI*)(HWND, const wchar_t*, UINT, DWORD_PTR);
  Text file_;
  Function html_help_ = nullptr;
  std::vector<HWND> windows_;
};

}  // namespace kestrune
