// An import whose process is killed, at whatever moment, is made good by the next one, as if it had come to its end.
#include <csignal>
#include <ctime>
#include <iostream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/workbench/RandomScene.h"

namespace kestrune {
namespace {

using testing::ImportRun;
using testing::PackageState;
using testing::RandomScene;
using testing::TempFolder;

constexpr int kObjects = 2000;
constexpr int kKills = 200;

/// Sends SIGKILL to this process once it has used so much time of the processor: other programs have no say in where that
/// is. 0 is never.
void KillThisProcessAfter(double seconds) {
  sigevent kill{};
  kill.sigev_notify = SIGEV_SIGNAL;
  kill.sigev_signo = SIGKILL;
  timer_t timer{};
  itimerspec when{};
  when.it_value.tv_sec = static_cast<std::time_t>(seconds);
  when.it_value.tv_nsec = static_cast<long>((seconds - static_cast<double>(when.it_value.tv_sec)) * 1e9);
  ASSERT_EQ(timer_create(CLOCK_PROCESS_CPUTIME_ID, &kill, &timer), 0);
  ASSERT_EQ(timer_settime(timer, 0, &when, nullptr), 0);
}

class KilledImport : public ::testing::Test {
 protected:
  KilledImport() {
    for (int made = 0; made < kObjects; ++made)
      scene.edits.Add(made == 0 || scene.edits.Roll(4) == 0 ? 0 : 1 + scene.edits.Roll(made));
  }

  /// The import that is due, killed kKills times, each time from the same model.
  void KillAndHeal() {
    scene.Expect();
    CloseModel();
    std::filesystem::rename(live_, start_);
    StartAnew();
    const ImportRun uncut = scene.setup.Import();
    ASSERT_TRUE(uncut.completed) << ::testing::PrintToString(uncut.messages);
    const PackageState end = scene.Read();
    ExpectPackage(end, scene.expected);
    StartAnew();
    const double duration = ImportInAProcess(0);

    int before = 0, after = 0;
    for (int n = 0; n < kKills && !HasFailure(); ++n) {
      const double moment = duration * (n + scene.edits.Roll(1000) / 1000.0) / kKills;
      SCOPED_TRACE("killed after " + std::to_string(moment) + " of " + std::to_string(duration) + " s");
      StartAnew();
      ImportInAProcess(moment);
      const ImportRun healing = scene.setup.Import();
      EXPECT_TRUE(healing.completed);
      EXPECT_FALSE(healing.HasLine(u"ERROR"));
      ExpectPackage(scene.Read(), end);
      EXPECT_EQ(scene.setup.Import().writes, 0);
      before += healing.writes == uncut.writes;
      after += healing.writes == 0;
    }
    std::cout << kKills << " kills of " << uncut.writes << " writes in " << duration << " s: " << before
              << " before the first write, " << kKills - before - after << " between, " << after
              << " after the last\n";
    EXPECT_GT(kKills - before - after, kKills / 4) << "hardly cut off";
  }

 private:
  static std::filesystem::path FileIn(const std::filesystem::path& folder) {
    std::filesystem::create_directory(folder);
    return folder / "m.orim";
  }

  /// The model as it was at the start, without what a killed process has left beside it.
  void StartAnew() {
    CloseModel();
    std::filesystem::remove_all(live_);
    std::filesystem::copy(start_, live_);
    OpenModel();
    scene.setup.doors.UserClosesAll();
  }
  void OpenModel() {
    scene.setup.model = standins::OrimModel::Open(live_ / "m.orim");
    scene.setup.repository = orim::Repository(scene.setup.model.Repository());
    scene.setup.add_in.Orim_OnPostInitialized(scene.setup.repository);
  }
  void CloseModel() {
    scene.setup.repository = {};
    const auto closed = std::move(scene.setup.model);
  }

  /// Returns the seconds of the processor that it took.
  double ImportInAProcess(double killed_after) {
    CloseModel();
    const pid_t process = fork();
    if (process == 0) {
      KillThisProcessAfter(killed_after);
      OpenModel();
      scene.setup.Import();
      CloseModel();
      _exit(HasFailure());
    }
    int status = 0;
    rusage used{};
    wait4(process, &status, 0, &used);
    EXPECT_TRUE(status == 0 || (killed_after > 0 && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL))
        << status;
    OpenModel();
    const auto seconds = [](const timeval& time) {
      return static_cast<double>(time.tv_sec) + time.tv_usec / 1e6;
    };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
  }

  TempFolder folder_;
  std::filesystem::path live_ = ToPath(folder_.File(u"live")), start_ = ToPath(folder_.File(u"start"));

 protected:
  RandomScene scene{1, FileIn(live_)};
};

TEST_F(KilledImport, TheFirstOne) {
  KillAndHeal();
}

TEST_F(KilledImport, OneThatArchivesRestoresMovesAndChanges) {
  for (int stage = 0; stage < 2; ++stage) {
    scene.ImportAndCheck();
    for (int edits = 0; edits < 4000; ++edits) scene.edits.ChangeOnce();
    scene.setup.doors.UserClosesAll();
  }
  KillAndHeal();
}

}  // namespace
}  // namespace kestrune
