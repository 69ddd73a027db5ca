// How other programs steer a running kestrune-doors: by messages to its control window. Sent with
// SendMessage, they return when it is done.
#pragma once

#include <windows.h>

namespace kestrune::standins {

/// The class of the control window, a message window (child of HWND_MESSAGE). It exists once the program can
/// be reached as "Doors.Application".
inline constexpr const wchar_t* kDoorsControlClass = L"KestruneDoorsControl";

/// Every message answers kDoorsControlDone.
enum DoorsControl : UINT {
  kDoorsSetPhase = WM_APP + 1,  // wparam: a DoorsPhase; kNotRunning ends the program
  kDoorsDieAtPerm,     // wparam: the next script run is the last thing it does: it dies at its n-th perm
                       // (from 1), without a word to anybody
  kDoorsDamageExport,  // the next file that a script writes and names as its result is cut in half
  kDoorsCloseModules,  // as a user does
};
inline constexpr LRESULT kDoorsControlDone = 1;

}  // namespace kestrune::standins
