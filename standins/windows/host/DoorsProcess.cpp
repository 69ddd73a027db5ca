#include "standins/windows/host/DoorsProcess.h"

#include <utility>

#include "platform/Files.h"
#include "platform/windows/Module.h"
#include "standins/stage/CommandError.h"
#include "standins/windows/doors/DoorsControl.h"
#include "standins/windows/host/ChildProcess.h"
#include "standins/windows/host/LoadBelowWine.h"

namespace kestrune::standins {

namespace {

constexpr DWORD kPatienceMs = 20000;
constexpr DWORD kPauseMs = 10;

Text ProgramBesideThis() {
  const Text path = ThisModulePath();
  return path.substr(0, path.rfind(u'\\') + 1) + u"kestrune-doors.exe";
}

HWND NextControlWindow(HWND after) {
  return FindWindowExW(HWND_MESSAGE, after, kDoorsControlClass, nullptr);
}

/// A DOORS that nobody ended, or that the system started by itself, would be reached in place of the new one. One that is
/// stuck, as its client was killed, is killed as well.
void EndStrays() {
  while (const HWND stray = NextControlWindow(nullptr)) {
    DWORD id = 0;
    GetWindowThreadProcessId(stray, &id);
    const HANDLE process = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, id);
    if (!process) continue;  // it has gone meanwhile
    PostMessageW(stray, kDoorsSetPhase, static_cast<WPARAM>(DoorsPhase::kNotRunning), 0);
    if (WaitForSingleObject(process, kPatienceMs) != WAIT_OBJECT_0) TerminateProcess(process, 1);
    WaitForSingleObject(process, kPatienceMs);
    CloseHandle(process);
  }
}

}  // namespace

DoorsProcess::DoorsProcess(Settings settings) : settings_(std::move(settings)) {
  DoorsDatabase::Open(ToPath(settings_.database));  // says why, where it cannot be
  if (settings_.program.empty()) settings_.program = ProgramBesideThis();
  const HANDLE registering = StartProgram({settings_.program, settings_.database, u"--register"});
  if (AwaitEnd(registering, kPatienceMs) != 0) throw CommandError(u"DOORS cannot be registered.");
}

DoorsProcess::~DoorsProcess() {
  try {
    SetPhase(DoorsPhase::kNotRunning);
  } catch (const CommandError&) {  // it is stuck
    if (!process_) return;
    TerminateProcess(process_, 1);
    CloseHandle(process_);
  }
}

bool DoorsProcess::IsRunning() const {
  return process_ && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

void DoorsProcess::SetPhase(DoorsPhase state) {
  if (state == DoorsPhase::kNotRunning) {
    if (IsRunning()) Tell(kDoorsSetPhase, static_cast<WPARAM>(state));
    if (process_) AwaitEnd(std::exchange(process_, nullptr), kPatienceMs);
    return;
  }
  if (!IsRunning()) return Start(state);
  Tell(kDoorsSetPhase, static_cast<WPARAM>(state));
}

void DoorsProcess::Start(DoorsPhase state) {
  if (process_) CloseHandle(std::exchange(process_, nullptr));
  EndStrays();
  std::vector<Text> words = {settings_.program, settings_.database, u"--state",
                             Text(kDoorsPhaseNames[static_cast<int>(state)])};
  if (!settings_.log.empty()) words.insert(words.end(), {u"--log", settings_.log});
  process_ = StartProgram(words);
  const ULONGLONG end = GetTickCount64() + kPatienceMs;
  while (!ControlWindow()) {
    if (!IsRunning() || GetTickCount64() > end) throw CommandError(u"DOORS does not start.");
    Sleep(kPauseMs);
  }
  Tell(kDoorsSetPhase, static_cast<WPARAM>(state));  // answered when it has shown itself
}

HWND DoorsProcess::ControlWindow() const {
  HWND window = nullptr;
  while ((window = NextControlWindow(window))) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetProcessId(process_)) return window;
  }
  return nullptr;
}

void DoorsProcess::Tell(UINT message, WPARAM parameter) const {
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(ControlWindow(), message, parameter, 0, SMTO_BLOCK, kPatienceMs, &answer);
  if (answer != kDoorsControlDone) throw CommandError(u"DOORS does not answer.");
}

void DoorsProcess::DieAtPerm(int n) const {
  Tell(kDoorsDieAtPerm, static_cast<WPARAM>(n));
}

void DoorsProcess::DamageNextExport() const {
  Tell(kDoorsDamageExport, 0);
}

void DoorsProcess::CloseModules() const {
  Tell(kDoorsCloseModules, 0);
}

void DoorsProcess::Load(const Text& file, const Text& folder) {
  if (settings_.workbench.empty())
    throw CommandError(u"Only kestrune-workbench can load exchange files: none is named.");
  if (IsRunning()) CloseModules();
  LoadBelowWine(settings_.workbench, file, folder, settings_.database);
}

void DoorsProcess::AddView(const Text& module, const Text& name, const Text& attribute, const Text& value) {
  DoorsDatabase database = DoorsDatabase::Open(ToPath(settings_.database));
  AddViewTo(database, module, name, attribute, value);
}

}  // namespace kestrune::standins
