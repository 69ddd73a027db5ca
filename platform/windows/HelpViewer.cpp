#include "platform/windows/HelpViewer.h"

#include <htmlhelp.h>

#include "platform/Files.h"
#include "platform/ResourceStore.h"
#include "platform/com/ComText.h"

namespace kestrune {

HelpViewer::~HelpViewer() {
  for (const HWND window : windows_)
    if (IsWindow(window)) SendMessageW(window, WM_CLOSE, 0, 0);
}

int HelpViewer::Show(int context) {
  if (!IsFile(file_)) return stored::kHelpFileMissing;
  if (!html_help_) {
    const HMODULE library = LoadLibraryW(L"hhctrl.ocx");
    if (!library) return stored::kHelpNotShown;
    html_help_ = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpW")));
  }
  const HWND window = html_help_
                          ? html_help_(nullptr, Wide(file_), HH_HELP_CONTEXT, static_cast<DWORD_PTR>(context))
                          : nullptr;
  if (!window) return stored::kHelpNotShown;
  std::erase(windows_, window);
  windows_.push_back(window);
  return 0;
}

}  // namespace kestrune
