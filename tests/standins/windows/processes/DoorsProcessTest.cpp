#include <gtest/gtest.h>

#include "platform/windows/TopWindows.h"
#include "standins/windows/host/ChildProcess.h"
#include "tests/standins/windows/processes/DoorsRun.h"

namespace kestrune::testing {
namespace {

using standins::DoorsPhase;

/// The styles of DOORS' windows, as far as they tell how far it has come; 0 for one that is not to be seen.
std::vector<LONG> StylesOfDoors() {
  std::vector<LONG> styles;
  VisitTopWindows([&](HWND window) {
    wchar_t name[40] = {};
    GetClassNameW(window, name, 40);
    if (name == std::wstring_view(L"DOORSWindow"))
      styles.push_back(IsWindowVisible(window) ? GetWindowLongW(window, GWL_STYLE) & 0x04FF0000 : 0);
    return true;
  });
  return styles;
}

TEST_F(DoorsRun, AnswersAMillionCharactersToEachOfItsClients) {
  Text text(1'000'000, u'\u00e4');
  text += u" caf\u00e9 \U0001F697 \u4f60";
  for (const Object& application : {Application(), Application()}) {
    application.Put(u"Result", text);
    EXPECT_TRUE(Run(application, u"string s = oleGetResult()\noleSetResult(s s)") == text + text);
  }
}

TEST_F(DoorsRun, ShowsHowFarItHasCome) {
  const Object application = Application();
  const struct {
    DoorsPhase phase;
    std::vector<LONG> styles;
    std::uint32_t failure;  // of using the automation object meanwhile
  } cases[] = {
      {DoorsPhase::kStartUp, {0x04000000}, error::kNotConnected},
      {DoorsPhase::kLogin, {0x04C80000}, error::kNotConnected},
      {DoorsPhase::kPasswordCheck, {0}, error::kNotConnected},
      {DoorsPhase::kReady, {0x04CF0000}, 0},
      {DoorsPhase::kNotRunning, {}, error::kServerUnavailable},
  };
  for (const auto& each : cases) {
    doors.SetPhase(each.phase);
    EXPECT_EQ(StylesOfDoors(), each.styles);
    EXPECT_EQ(FailureOf([&] { application.Get(u"Result"); }), each.failure);
  }
}

TEST_F(DoorsRun, GivesAModuleAWindow) {
  Run(Application(), u"read(\"/Car\", true)");
  EXPECT_EQ(StylesOfDoors(), (std::vector<LONG>{0x04CF0000, 0x04CF0000}));
  doors.CloseModules();
  EXPECT_EQ(StylesOfDoors(), (std::vector<LONG>{0x04CF0000}));
}

TEST_F(DoorsRun, IsStartedByTheSystemWhereItIsRegistered) {
  doors.SetPhase(DoorsPhase::kNotRunning);
  EXPECT_EQ(Run(Application(), u"oleSetResult(fullName(read(\"/Car\", false)))"), u"/Car");
  doors.SetPhase(DoorsPhase::kLogin);
  EXPECT_EQ(StylesOfDoors(), std::vector<LONG>{0x04C80000}) << "the other one has gone";
  doors.SetPhase(DoorsPhase::kNotRunning);

  const Text program = FromUtf8(KESTRUNE_DOORS_PROGRAM);
  EXPECT_EQ(
      standins::AwaitEnd(standins::StartProgram({program, folder.File(u"doors"), u"--unregister"}), 20000),
      0u);
  EXPECT_EQ(FailureOf([&] { Application(); }), error::kNoSuchClass);
}

TEST_F(DoorsRun, LogsWhatScriptsPrintAndWhatIsWrongWithThem) {
  const Object application = Application();
  Run(application, u"print \"one\\n\"");
  application.Put(u"Result", u"before");
  EXPECT_EQ(Run(application, u"Module m = nothing"), u"before");
  const std::string log = ReadFile(folder.File(u"log"));
  EXPECT_TRUE(log.starts_with("one\n")) << log;
  EXPECT_NE(log.find("nothing"), std::string::npos) << log;
}

}  // namespace
}  // namespace kestrune::testing
