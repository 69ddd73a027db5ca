// Runs every script in scripts/, and every example in the README, for what it says it does, and pieces of it,
// of which most are wrong: none may do worse than fail.
#include <gtest/gtest.h>

#include "ScriptRun.h"
#include "tests/support/ScriptFiles.h"

namespace kestrune::dxl {

namespace {

void ExpectWhatTheySay(const std::vector<kestrune::testing::ScriptFile>& scripts) {
  ASSERT_FALSE(scripts.empty());
  for (const auto& script : scripts) {
    SCOPED_TRACE(script.name);
    ASSERT_NE(script.printed + script.runtime_error + std::to_string(script.compile_errors.size()), "0")
        << "the script expects nothing";
    const Outcome outcome = RunScript(script.source);
    EXPECT_EQ(outcome.compile_errors, script.compile_errors);
    EXPECT_EQ(outcome.printed, script.printed);
    EXPECT_EQ(outcome.runtime_error, script.runtime_error);
  }
}

TEST(ScriptFiles, DoWhatTheySay) {
  ExpectWhatTheySay(kestrune::testing::ScriptFilesOf("standins/dxl"));
}

TEST(Readme, SaysWhatTheInterpreterDoes) {
  ExpectWhatTheySay(kestrune::testing::ScriptsIn("standins/dxl/README.md"));
}

TEST(ScriptFiles, MayEndAnywhereAndLackAnyPiece) {
  constexpr std::size_t kHole = 3;
  const auto try_out = [](const std::string& script) {
    EXPECT_NO_THROW(RunScript("pragma runLim, 5000\n" + script)) << script;
  };
  for (const auto& [name, script, printed, compile_errors, runtime_error] :
       kestrune::testing::ScriptFilesOf("standins/dxl")) {
    // With a hole in it, a script that sets the run limit itself may run for ever.
    if (script.find("runLim") != std::string::npos) continue;
    for (std::size_t end = 0; end < script.size(); end += 17) try_out(script.substr(0, end));
    for (std::size_t at = 0; at + kHole < script.size(); at += 23)
      try_out(script.substr(0, at) + script.substr(at + kHole));
  }
}

}  // namespace

}  // namespace kestrune::dxl
