#include <gtest/gtest.h>
#include <sstream>

#include "standins/play/PlayDesktop.h"
#include "tests/standins/play/SamplePlays.h"

namespace kestrune::play {
namespace {

struct PlayerTest : ::testing::Test {
  /// What went wrong; "" when the script was played to its end.
  std::string Play(const Text& source) {
    PlayDesktop desktop(in, out, err);
    try {
      desktop.Play(SampleScript(source), SampleCommands(desktop, completed));
    } catch (const ScriptError& error) {
      return error.what();
    }
    return "";
  }

  std::istringstream in;
  std::ostringstream out, err;
  bool completed = false;
};

TEST_F(PlayerTest, WaitsUntilAFormHasClosedByItself) {
  EXPECT_EQ(Play(u"open\nform frmSample\nwait until closed"), "x:3: not in 600 intervals: wait until closed");
  EXPECT_EQ(Play(u"open\nform frmSample\nwait until lst selected \"a\""),
            "x:3: not in 600 intervals: wait until lst selected \"a\"");
  Text waits;
  for (int tick = 0; tick < 150; ++tick) waits += u"wait\n";
  EXPECT_EQ(Play(u"open\nform frmSample\n" + waits + u"wait until closed\nask\nanswer OK \"Hello\""), "");
}

TEST_F(PlayerTest, TheFirstDepartureFromTheScriptEndsThePlay) {
  for (const Departure& each : kDepartures) {
    completed = false;
    EXPECT_EQ(Play(u"open\n" + Text(each.script)), each.failure);
    const bool was_closed_before = Text(each.script).find(u"close\n") != Text::npos;
    EXPECT_EQ(completed, was_closed_before) << "no form's caller goes on as if it had been used to the end";
  }
}

}  // namespace
}  // namespace kestrune::play
