// Plays every session in sessions/ from a new model and a newly loaded DOORS. What a session shows at the
// terminal, line by line, stands beside it in a file .out; where there is none, it shows nothing.
#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include "platform/Files.h"
#include "tests/support/TestPlatform.h"
#include "workbench/Program.h"

namespace kestrune {
namespace {

const std::string kFolder = KESTRUNE_SOURCE_DIR "/tests/workbench/sessions/";

std::vector<std::string> SessionNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder))
    if (entry.path().extension() == ".play") names.push_back(entry.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

class SessionTest : public ::testing::Test {
 protected:
  SessionTest() {
    Run({"doors", "load", KESTRUNE_SOURCE_DIR "/tests/data/reqif/resync-a.reqif", "--doors", At("doors"),
         "--at", "/Demo"});
    Run({"new", At("model"), "--package", "Requirements"});
  }
  std::string At(const std::string& name) const { return ToUtf8(folder_.File(FromUtf8(name))); }
  void Run(const std::vector<std::string>& words) {
    shown_.str("");
    status_ = workbench::RunWorkbench(words, {in_, shown_, shown_});
  }
  void Play(const std::string& script) {
    Run({"play", script, "--model", At("model"), "--doors", At("doors"), "--package", "Requirements",
         "--data", At("data")});
  }

  testing::TempFolder folder_;
  std::istringstream in_;
  std::ostringstream shown_;
  int status_ = 0;
};

class Session : public SessionTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(Session, IsPlayedToItsEnd) {
  const Text expected_file = FromUtf8(kFolder + GetParam() + ".out");
  Play(kFolder + GetParam() + ".play");
  EXPECT_EQ(status_, 0);
  EXPECT_EQ(shown_.str(), IsFile(expected_file) ? ReadFile(expected_file) : "");
}

INSTANTIATE_TEST_SUITE_P(Play, Session, ::testing::ValuesIn(SessionNames()), [](const auto& session) {
  std::string name = session.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

using SessionFailure = SessionTest;

TEST_F(SessionFailure, LeavesTheOptionsAsTheyWere) {
  const struct {
    const char* script;
    const char* failure;
  } cases[] = {
      {"click \"&Options\"\nform frmOptions\nselect lvMappings \"ID\"\npress cmdRemove\npress cmdMap\n"
       "form frmMapWizard\npress cmdBack",
       ":7: cmdBack of frmMapWizard is disabled: press cmdBack"},
      {"click \"&Options\"\nform frmOptions\nselect lvMappings \"ID\"\npress cmdRemove",
       ":4: the script ends while frmOptions is open: press cmdRemove"},
      {"click \"&Import\"\nform frmImport\npress cmdClose",
       ":3: cmdClose of frmImport is disabled: press cmdClose"},
      {"click \"&Improve\"", ":1: The add-in's menu has no item \"&Improve\".: click \"&Improve\""},
      {"new \"Other\"\npackage \"Other\"\nclick \"&Import\"",
       ":3: The package \"Other\" is not linked to a DOORS module.: click \"&Import\""},
      {"view \"/Demo/None\" \"a\" \"b\" \"c\"",
       ":1: DOORS has no module \"/Demo/None\".: view \"/Demo/None\" \"a\" \"b\" \"c\""},
  };
  Play(kFolder + "map-one-attribute.play");
  ASSERT_EQ(status_, 0) << shown_.str();
  const std::string script = At("bad.play");
  for (const auto& each : cases) {
    WriteFile(FromUtf8(script), each.script);
    Play(script);
    EXPECT_EQ(status_, 1);
    EXPECT_EQ(shown_.str(), script + each.failure + "\n");
  }
  WriteFile(FromUtf8(script),
            "click \"&Options\"\nform frmOptions\nexpect lvMappings row \"ID\" \"Alias\"\nclose\n");
  Play(script);
  EXPECT_EQ(shown_.str(), "");
}

}  // namespace
}  // namespace kestrune
