#include "tests/windows/dialogs/DialogStage.h"

#include "platform/windows/Module.h"

namespace kestrune::testing {

namespace {

void RegisterWindowClass() {
  static const ATOM registered = [] {
    WNDCLASSW description = {.lpfnWndProc = DefWindowProcW, .hInstance = ThisModule()};
    description.lpszClassName = L"DOORSWindow";
    return RegisterClassW(&description);
  }();
  if (!registered) throw std::runtime_error("no window class");
}

}  // namespace

DoorsWindow::DoorsWindow(DWORD style, bool is_visible) {
  RegisterWindowClass();
  window_ = CreateWindowExW(WS_EX_NOACTIVATE, L"DOORSWindow", L"DOORS", style, 900, 600, 200, 100, nullptr,
                            nullptr, ThisModule(), nullptr);
  if (is_visible) ShowWindow(window_, SW_SHOWNOACTIVATE);
}

void DialogStage::StoreRules(const std::vector<Text>& rules) {
  Text record = LoadResText(text::kRecordHelp) + u"\r\n\r\n";
  for (const Text& rule : rules) record += rule + u"\r\n";
  model.Tags = {std::make_shared<PackageModel::Tag>(u"DoorsConnection", u"<memo>", record)};
}

}  // namespace kestrune::testing
