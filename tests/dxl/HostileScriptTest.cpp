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

struct Row {
  const char* name;
  std::string script;
  const char* error;
};

class HostileScript : public testing::TestWithParam<Row> {};

TEST_P(HostileScript, IsRefused) {
  const Outcome outcome = RunScript(GetParam().script);
  ASSERT_EQ(outcome.compile_errors.size(), 1u);
  EXPECT_NE(outcome.compile_errors[0].find(GetParam().error), std::string::npos) << outcome.compile_errors[0];
}

constexpr int kMany = 20'000;

INSTANTIATE_TEST_SUITE_P(
    Table, HostileScript,
    testing::Values(Row{"Parens", "int i = " + Times(kMany, "("), "nested too deeply"},
                    Row{"Brackets", "int i = " + Times(kMany, "a["), "nested too deeply"},
                    Row{"Prefixes", "bool b = " + Times(kMany, "!") + "true", "nested too deeply"},
                    Row{"Casts", "print (" + Times(kMany, "int "), "nested too deeply"},
                    Row{"Sizeofs", "print (" + Times(kMany, "sizeof "), "nested too deeply"},
                    Row{"Conditionals", "int i = " + Times(kMany, "true ? 1 : "), "nested too deeply"},
                    Row{"Assignments", Times(kMany, "a = ") + "1", "nested too deeply"},
                    Row{"Blocks", Times(kMany, "{"), "nested too deeply"},
                    Row{"Ifs", Times(kMany, "if (true) "), "nested too deeply"},
                    Row{"Elses", "if (true) {}" + Times(kMany, " else if (true) {}"), "nested too deeply"},
                    Row{"Functions", Times(kMany, "void f() {"), "nested too deeply"},
                    Row{"Sum", "int i = 1" + Times(kMany, " + 1"), "too long"},
                    Row{"Steps", "int i = 1\ni" + Times(kMany, "++"), "too long"},
                    Row{"Properties", "print a" + Times(kMany, ".b"), "too long"},
                    Row{"Chain", "print " + Times(kMany, "\"a\" "), "too long"},
                    Row{"CallChain", "print " + Times(190, "lower ") + "1",
                        "incorrect arguments for function (lower)"},
                    Row{"SplittingChain", "print " + Times(45, "length \"a\" intOf 1 ") + "1", "incorrect"},
                    Row{"Arguments", "cistrcmp(" + Times(kMany, "1, ") + "1)",
                        "incorrect arguments for function (cistrcmp)"},
                    Row{"Garbage", std::string("\x01\xff\x00\"", 4), "unexpected character"}),
    [](const testing::TestParamInfo<Row>& info) { return std::string(info.param.name); });

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
