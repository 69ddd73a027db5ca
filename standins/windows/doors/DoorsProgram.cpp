#include "standins/windows/doors/DoorsProgram.h"

#include <fstream>

#include "platform/Files.h"
#include "platform/windows/Win32Folders.h"
#include "standins/windows/doors/RealDoorsWindows.h"

namespace kestrune::standins {

/// The automation object as clients get it: tells the program when a script has run, well or not.
class DoorsProgram::Application : public Dispatch {
 public:
  explicit Application(DoorsProgram& program) : program_(program), served_(program.doors_.Application()) {}

  Variant Invoke(Access access, TextView member, Args args) override {
    struct End {
      DoorsProgram& program;
      ~End() { program.AfterRun(); }
    };
    if (access != Access::kCall) return served_.Peer()->Invoke(access, member, std::move(args));
    const End end{program_};
    return served_.Peer()->Invoke(access, member, std::move(args));
  }

 private:
  DoorsProgram& program_;
  Object served_;
};

DoorsProgram::DoorsProgram(const Text& database, Text log, DoorsPhase state)
    : database_(DoorsDatabase::Open(ToPath(database))),
      doors_(database_, Win32Folders().Temp(), objects_, std::make_unique<RealDoorsWindows>(),
             DoorsPhase::kNotRunning),
      log_(std::move(log)),
      server_(Object(std::make_shared<Application>(*this))),
      control_([this](UINT message, WPARAM parameter) { return OnControl(message, parameter); }) {
  doors_.SetPhase(state);
}

void DoorsProgram::Run() {
  MSG message = {};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

LRESULT DoorsProgram::OnControl(UINT message, WPARAM parameter) {
  switch (message) {
    case kDoorsSetPhase:
      SetPhase(static_cast<DoorsPhase>(parameter));
      return kDoorsControlDone;
    case kDoorsDieAtPerm:
      doors_.InterruptNextRunAt(static_cast<int>(parameter), [this] { Die(); });
      return kDoorsControlDone;
    case kDoorsDamageExport:
      damages_export_ = true;
      return kDoorsControlDone;
    case kDoorsCloseModules:
      doors_.UserClosesAll();
      return kDoorsControlDone;
    default:
      return 0;
  }
}

void DoorsProgram::SetPhase(DoorsPhase state) {
  doors_.SetPhase(state);
  if (state == DoorsPhase::kNotRunning) PostQuitMessage(0);
}

void DoorsProgram::Die() {
  server_.Revoke();
  TerminateProcess(GetCurrentProcess(), 1);
  std::abort();
}

void DoorsProgram::AfterRun() {
  WriteLog();
  if (damages_export_) DamageExport();
}

void DoorsProgram::WriteLog() {
  const Text news = doors_.Log().substr(logged_);
  logged_ += news.size();
  if (!log_.empty() && !news.empty())
    std::ofstream(ToPath(log_), std::ios::app | std::ios::binary) << ToUtf8(news);
}

void DoorsProgram::DamageExport() {
  const Text file = doors_.Result();
  if (!IsFile(file)) return;
  damages_export_ = false;
  const auto path = ToPath(file);
  std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
}

}  // namespace kestrune::standins
