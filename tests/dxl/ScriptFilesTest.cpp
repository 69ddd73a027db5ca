// Runs every script in scripts/. What a script must do stands in it:
//   print "a" "\n"      // expect: a
//   // expect error: line 3: undeclared variable (x)
//   // expect runtime error: line 3: unassigned variable (x)
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "ScriptRun.h"

namespace kestrune::dxl {

namespace {

struct Expected {
  std::string printed;
  std::vector<std::string> compile_errors;
  std::string runtime_error;
};

Expected ReadExpected(const std::string& script) {
  Expected expected;
  std::istringstream lines(script);
  const auto after = [](const std::string& line, const std::string& mark) {
    const std::size_t at = line.find(mark);
    return at == std::string::npos ? std::optional<std::string>() : line.substr(at + mark.size());
  };
  for (std::string line; std::getline(lines, line);) {
    if (const auto printed = after(line, "// expect: ")) expected.printed += *printed + "\n";
    if (const auto error = after(line, "// expect error: ")) expected.compile_errors.push_back(*error);
    if (const auto error = after(line, "// expect runtime error: ")) expected.runtime_error = *error;
  }
  return expected;
}

std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> ScriptNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(KESTRUNE_SOURCE_DIR "/tests/dxl/scripts"))
    names.push_back(entry.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

class ScriptFile : public testing::TestWithParam<std::string> {};

TEST_P(ScriptFile, DoesWhatItSays) {
  const std::string script = ReadWhole(KESTRUNE_SOURCE_DIR "/tests/dxl/scripts/" + GetParam() + ".dxl");
  const Expected expected = ReadExpected(script);
  ASSERT_NE(expected.printed + expected.runtime_error + std::to_string(expected.compile_errors.size()), "0")
      << "the script expects nothing";
  const Outcome outcome = RunScript(script);
  EXPECT_EQ(outcome.compile_errors, expected.compile_errors);
  EXPECT_EQ(outcome.printed, expected.printed);
  EXPECT_EQ(outcome.runtime_error, expected.runtime_error);
}

INSTANTIATE_TEST_SUITE_P(Scripts, ScriptFile, testing::ValuesIn(ScriptNames()),
                         [](const auto& info) { return info.param; });

}  // namespace

}  // namespace kestrune::dxl
