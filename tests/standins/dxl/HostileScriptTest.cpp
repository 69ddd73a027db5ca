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

/// Each grows for as long as it may; the lines before the loop stand in `head`.
TEST(HostileScriptThatRuns, StaysBelowItsMemoryLimit) {
  constexpr std::size_t kLimit = 20'000'000;
  const struct {
    const char* head;
    const char* turn;
  } rows[] = {
      {"string a[300000]\nstring s = \"a text of some length\"", "a[i] = s i \"\""},
      {"string s = \"x\"", "s = s \"more and more of it\""},
      {"Buffer b = create", "b += \"more and more of it\""},
      {"Skip s = create", "put(s, i, i)"},
      {"Skip s = createString", "put(s, i \"\", i)"},
      {"Skip s = create", "Skip outer = create\nput(outer, 1, s)\ns = outer"},
      {"", "Skip s = create\nput(s, 1, s)"},
      {"Regexp r[100000]", "r[i] = regexp2 \"[a-z][a-z][a-z][a-z]\""},
      {"", "print \"more and more of it\""},
      {"void f(int i) {\nint a[10000]\na[0] = i\nf(i + 1)\n}", "f(0)"},
  };
  for (const auto& row : rows) {
    const std::string script = std::string("pragma runLim, 0\nint i = 0\n") + row.head +
                               "\nwhile (true) {\n" + row.turn + "\ni++\n}";
    const Outcome outcome = RunScript(script, kLimit);
    EXPECT_EQ(outcome.compile_errors, std::vector<std::string>()) << row.turn;
    EXPECT_NE(outcome.runtime_error.find("memory limit reached"), std::string::npos)
        << row.turn << outcome.runtime_error;
    EXPECT_LE(outcome.cost.peak_bytes, kLimit) << row.turn;
  }
}

/// Memory that a script lets go is there again, and its own limit holds in the next run.
TEST(HostileScriptThatRuns, MayUseItsMemoryAgain) {
  const Outcome outcome = RunScript(
      "string s = \"\"\nint i\nint n\nfor (n = 0; n < 200; n++) {\ns = \"\"\nfor i in 0:999 do s = s "
      "\"0123456789\"\n}\n"
      "print length(s)",
      1'000'000);
  EXPECT_EQ(outcome.runtime_error, "");
  EXPECT_EQ(outcome.printed, "10000\n");
}

/// Few statements with much work in each: what is worked through counts.
TEST(HostileScriptThatRuns, RunsOutOfCyclesByWorkToo) {
  const std::string long_text =
      "string s = \"x\"\nint i\nfor i in 1:20 do s = s s\n";  // a million characters
  for (const char* turn : {"string t = s \"x\"", "bool b = (s \"\") == s", "string t = upper(s)",
                           "bool b = matches(\"(y|z)*a\", s)", "Buffer b = create\nb = s", "int a[1000000]",
                           "string t = s[1:]", "int n = cistrcmp(s, s)", "oleSetResult(s)"}) {
    const Outcome outcome = RunScript(long_text + "pragma runLim, 200000\nwhile (true) {\n" + turn + "\n}");
    EXPECT_NE(outcome.runtime_error.find("execution time limit reached"), std::string::npos)
        << turn << outcome.runtime_error;
  }
  const Outcome appended =
      RunScript("string s = \"\"\nint i\nfor (i = 0; i < 240000; i++) s = s \"x\"\nprint length(s)");
  EXPECT_EQ(appended.printed, "240000\n")
      << "a text that grows piece by piece takes time in proportion to its length";
}

TEST(HostileScriptThatRuns, MayNestSkipsToAnyDepth) {
  EXPECT_EQ(
      RunScript("Skip s = create\nSkip r\nint i\nfor (i = 0; i < 190000; i++) {\nr = create\nput(r, 1, s)\n"
                "s = r\n}\ns = create\nprint \"let go\"")
          .printed,
      "let go");
}

}  // namespace

}  // namespace kestrune::dxl
