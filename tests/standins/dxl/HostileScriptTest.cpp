// Scripts made to break the interpreter. Each must be refused or stopped, and quickly.
#include <gtest/gtest.h>

#include "ScriptRun.h"

namespace kestrune::dxl {

namespace {

std::string Times(int count, const std::string& text) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

TEST(HostileScript, IsRefused) {
  constexpr int kMany = 20'000;
  const struct {
    std::string head, repeated, tail;
    const char* error;
    int times = kMany;
  } rows[] = {
      {"int i = ", "(", "", "nested too deeply"},
      {"int i = ", "a[", "", "nested too deeply"},
      {"bool b = ", "!", "true", "nested too deeply"},
      {"print (", "int ", "", "nested too deeply"},
      {"print (", "sizeof ", "", "nested too deeply"},
      {"int i = ", "true ? 1 : ", "", "nested too deeply"},
      {"", "a = ", "1", "nested too deeply"},
      {"", "{", "", "nested too deeply"},
      {"", "if (true) ", "", "nested too deeply"},
      {"if (true) {}", " else if (true) {}", "", "nested too deeply"},
      {"", "void f() {", "", "nested too deeply"},
      {"int i = 1", " + 1", "", "too long"},
      {"int i = 1\ni", "++", "", "too long"},
      {"print a", ".b", "", "too long"},
      {"print ", "\"a\" ", "", "too long"},
      {"print ", "lower ", "1", "incorrect arguments for function (lower)", 190},
      {"print ", "length \"a\" intOf 1 ", "1", "incorrect", 45},
      {"cistrcmp(", "1, ", "1)", "incorrect arguments for function (cistrcmp)"},
      {"", std::string("\x01\xff\x00\"", 4), "", "unexpected character", 1},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunScript(row.head + Times(row.times, row.repeated) + row.tail);
    ASSERT_EQ(outcome.compile_errors.size(), 1u) << row.repeated;
    EXPECT_NE(outcome.compile_errors[0].find(row.error), std::string::npos) << outcome.compile_errors[0];
  }
}

TEST(HostileScriptThatRuns, NestsToTheLimitInEveryCall) {
  const std::string deep = Times(50, "(") + "f(i + 1)" + Times(50, ")");
  const Outcome outcome = RunScript("int f(int i) { return " + deep + " }\nprint f(0)");
  EXPECT_EQ(outcome.runtime_error, "line 1: recursion too deep in function (f)");
}

TEST(HostileScriptThatRuns, MatchesInLinearTime) {
  const std::string script =
      "string s = \"" + Times(20'000, "a") + "\"\nprint matches(\"(a*)*(a*)*(a|a)*b\", s) \"\"";
  EXPECT_EQ(RunScript(script).printed, "false");
}

}  // namespace

}  // namespace kestrune::dxl
