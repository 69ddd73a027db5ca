#include "platform/windows/HelpViewer.h"

#include <htmlhelp.h>

#include "platform/com/ComText.h"

namespace kestrune {

namespace {

std::string ToSystemCodePage(const Text& text) {
  const int units = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_ACP, 0, Wide(text), units, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, Wide(text), units, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

}  // namespace

HelpViewer::~HelpViewer() {
  if (html_help_) html_help_(nullptr, nullptr, HH_CLOSE_ALL, 0);
}

void HelpViewer::Show(int context) {
  if (!html_help_) {
    const HMODULE library = LoadLibraryW(L"hhctrl.ocx");
    if (!library) return;
    html_help_ = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpA")));
  }
  const std::string path = ToSystemCodePage(file_);
  if (html_help_) html_help_(nullptr, path.c_str(), HH_HELP_CONTEXT, static_cast<DWORD_PTR>(context));
}

}  // namespace kestrune
