#include "platform/windows/MessageBoxes.h"

#include "platform/com/ComText.h"
#include "platform/windows/DialogLook.h"

namespace kestrune {

namespace {

DWORD StyleOf(const Message& message, HWND owner) {
  static constexpr DWORD kIcons[] = {MB_ICONSTOP, MB_ICONEXCLAMATION, MB_ICONQUESTION, MB_ICONINFORMATION};
  return kIcons[static_cast<int>(message.Icon)] | (message.Buttons == Buttons::kYesNo ? MB_YESNO : MB_OK) |
         (message.HelpContext ? MB_HELP : 0) | (owner ? 0 : MB_TASKMODAL | MB_SETFOREGROUND);
}

}  // namespace

Answer ShowMessageBox(const Message& message, HWND owner) {
  const DialogLook look;
  const MSGBOXPARAMSW box = {.cbSize = sizeof box,
                             .hwndOwner = owner,
                             .lpszText = Wide(message.Body),
                             .lpszCaption = Wide(message.Title),
                             .dwStyle = StyleOf(message, owner),
                             .dwContextHelpId = static_cast<DWORD_PTR>(message.HelpContext)};
  const int pressed = MessageBoxIndirectW(&box);
  if (message.Buttons == Buttons::kOk) return Answer::kOk;
  return pressed == IDYES ? Answer::kYes : Answer::kNo;
}

}  // namespace kestrune
