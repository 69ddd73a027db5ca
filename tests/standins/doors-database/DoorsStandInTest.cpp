#include "tests/standins/doors-database/SampleDoors.h"

namespace kestrune::standins {
namespace {

class StandInTest : public SampleDoors {};

TEST_F(StandInTest, KeepsTheResultBetweenRuns) {
  EXPECT_EQ(Run(u"string s = oleGetResult()\noleSetResult(s \"!\")\nprint \"hello\\n\"\n", u"in"), u"in!");
  EXPECT_EQ(doors.Log(), u"hello\n");
  application.Call(u"RunStr", {u"int x = 1"});
  EXPECT_EQ(application.Get(u"Result").ToText(), u"in!");
}

TEST_F(StandInTest, GivesUnusedTemporaryNames) {
  WriteFile(folder.File(u"DP2"), "");
  EXPECT_EQ(Run(u"string a = tempFileName()\nstring b = tempFileName()\noleSetResult(a \"|\" b)\n"),
            folder.File(u"DP1") + u"|" + folder.File(u"DP3"));
}

TEST_F(StandInTest, FailsARunAsTold) {
  const auto failure = [&](const Text& script) {
    try {
      Run(script, u"before");
      return 0u;
    } catch (const AutomationError& error) {
      return error.Number;
    }
  };
  doors.FailNextRun({error::kNotConnected, u"DOORS", u"gone"});
  EXPECT_EQ(failure(u"oleSetResult \"x\""), error::kNotConnected);
  EXPECT_EQ(application.Get(u"Result").ToText(), u"before");
  EXPECT_EQ(failure(u"oleSetResult \"x\""), 0u);

  doors.FailNextRunAt(2, {error::kCallFailed, u"DOORS", u"died"});
  EXPECT_EQ(failure(u"Module m = read(\"/Inner/Deep\", false)\noleSetResult \"half\"\nclose(m, false)"),
            error::kCallFailed);
  EXPECT_EQ(application.Get(u"Result").ToText(), u"half");
  EXPECT_EQ(doors.OpenModules().size(), 1u) << "the broken-off script has closed what it opened";

  doors.FailNextRunAt(9, {error::kCallFailed, u"DOORS", u"died"});
  EXPECT_EQ(failure(u"Item it = item \"/\""), 0u);
  doors.FailNextRunAt(9, {error::kCallFailed, u"DOORS", u"died"});
  EXPECT_EQ(failure(u"int n = nothing"), 0u);
  EXPECT_EQ(failure(u"int i\nfor i in 0:20 do {\nItem it = item \"/\"\n}"), 0u)
      << "the switch outlived its run";
}

TEST_F(StandInTest, LooksFromOutsideAsItsStateSaysAndSpeaksOnlyWhenReady) {
  constexpr std::uint32_t kSeen = 0x04FF0000;
  const struct {
    DoorsPhase state;
    bool is_there, is_visible;
    std::uint32_t style;
  } cases[] = {
      {DoorsPhase::kNotRunning, false, false, 0},   {DoorsPhase::kStartUp, true, true, 0x04000000},
      {DoorsPhase::kLogin, true, true, 0x04C80000}, {DoorsPhase::kPasswordCheck, true, false, 0x04C80000},
      {DoorsPhase::kReady, true, true, 0x04CF0000},
  };
  for (const auto& c : cases) {
    doors.SetPhase(c.state);
    bool is_there = false;
    platform.desktop.EnumTop([&](WindowHandle window) {
      if (platform.desktop.ClassOf(window) != u"DOORSWindow") return true;
      is_there = true;
      EXPECT_EQ(platform.desktop.IsVisible(window), c.is_visible);
      EXPECT_EQ(platform.desktop.StyleOf(window) & kSeen, c.style);
      return true;
    });
    EXPECT_EQ(is_there, c.is_there);
    const std::string failure = FailureOf([&] { application.Get(u"Result"); });
    EXPECT_EQ(failure.find("not running") != std::string::npos, c.state != DoorsPhase::kReady);
  }
}

TEST_F(StandInTest, DisplayedModulesComeToTheFront) {
  const WindowHandle host = platform.desktop.AddWindow({u"Host"});
  platform.desktop.BringToFront(host);
  Run(u"Module m = read(\"/Inner/Deep\", false)");
  EXPECT_EQ(platform.desktop.Foreground(), host);
  Run(u"Module m = read(\"/Demo/Specs/Car\", true)");
  const WindowHandle window = platform.desktop.Foreground();
  EXPECT_EQ(platform.desktop.ClassOf(window), u"DOORSWindow");
  Run(u"Module m = read(\"/Demo/Specs/Car\", true)\nclose(m, false)");
  EXPECT_NE(platform.desktop.ClassOf(window), u"DOORSWindow");
}

TEST_F(StandInTest, ClosingWhatIsNotSavedAsksOrLosesIt) {
  const Text module = u"Module m = module(item \"/Demo/Specs/Car\")\n";
  doors.UserOpens(u"/Demo/Specs/Car", false);
  EXPECT_EQ(Run(module + u"oleSetResult(isRead(m) \"\" isEdit(m) \"\" unsaved(m) \"\")"), u"truefalsefalse");
  doors.UserEdits(u"/Demo/Specs/Car");
  EXPECT_EQ(Run(module + u"oleSetResult(isRead(m) \"\" isEdit(m) \"\" unsaved(m) \"\")"), u"falsetruetrue");
  EXPECT_EQ(doors.Complaints(), std::vector<Text>());
  EXPECT_EQ(Run(module + u"oleSetResult(close(m) \"\")"), u"false");
  EXPECT_EQ(doors.OpenModules().size(), 1u);
  EXPECT_EQ(Run(module + u"oleSetResult(close(m, false) \"\")"), u"true");
  EXPECT_EQ(doors.OpenModules().size(), 0u);
  EXPECT_EQ(doors.Complaints(), (std::vector<Text>{u"asked whether to save /Demo/Specs/Car",
                                                   u"lost the changes of /Demo/Specs/Car"}));
}

}  // namespace
}  // namespace kestrune::standins
