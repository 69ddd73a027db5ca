#include "standins/windows/host/ChildProcess.h"

#include "platform/com/ComText.h"
#include "standins/stage/CommandError.h"
#include "standins/windows/process/Arguments.h"

namespace kestrune::standins {

HANDLE StartProgram(const std::vector<Text>& words) {
  std::wstring line = CommandLineOf(words);
  STARTUPINFOW start = {.cb = sizeof start};
  PROCESS_INFORMATION started = {};
  // Only both together, no handles and no console, keep this program's output from the other one.
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr, nullptr,
                      &start, &started))
    throw CommandError(words[0] + u": " + SystemMessage(HRESULT_FROM_WIN32(GetLastError())));
  CloseHandle(started.hThread);
  return started.hProcess;
}

DWORD AwaitEnd(HANDLE process, DWORD limit) {
  const bool has_ended = WaitForSingleObject(process, limit) == WAIT_OBJECT_0;
  DWORD status = 0;
  GetExitCodeProcess(process, &status);
  if (!has_ended) TerminateProcess(process, 1);
  CloseHandle(process);
  if (!has_ended) throw CommandError(u"A program that was started does not end.");
  return status;
}

}  // namespace kestrune::standins
