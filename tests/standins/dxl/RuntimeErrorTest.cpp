// One failing script per row; each prints "before" first and must not reach its end.
#include <gtest/gtest.h>

#include "ScriptRun.h"

namespace kestrune::dxl {

namespace {

struct Row {
  const char* script;
  const char* error;
};

constexpr Row kRows[] = {
    {"int total\n\nint i = total + 1", "line 4: unassigned variable (total)"},
    {"string s[2]\ns[0] = s[1]", "line 3: unassigned array element"},
    {"int a[2]\na[2] = 1", "line 3: array index out of range (2)"},
    {"int a[2]\na[-1] = 1", "line 3: array index out of range (-1)"},
    {"int n = -1\nint a[n]", "line 3: impossible array size (-1)"},
    {"bool b = isValidInt(\"\")", "line 2: null string given to (isValidInt)"},
    {"int i = intOf(\"1x\")", "line 2: not an int (1x)"},
    {"int i = 1\ni %= 0", "line 3: division by zero"},
    {"real r = 1.0 / 0.0", "line 2: division by zero"},
    {"char c = \"ab\"[2]", "line 2: index outside the text (2)"},
    {"string s = \"ab\"[1:0]", "line 2: end of range before its start (0)"},
    {"Regexp re = regexp2 \"x\"\nbool b = re \"y\"\nint i = end 0", "line 4: no match to speak of"},
    {"bool b = matches(\"x\", \"x\")\nint i = end 1", "line 3: no such group (1)"},
    {"Regexp re = regexp2 \"a?\"",
     "line 2: regular expression (a?): ? { and } are not supported without a backslash"},
    {"Skip s = create\nput(s, \"a\", 1)", "line 3: string key in a Skip that is not made by createString"},
    {"Skip s = create\nint i = (int key s)", "line 3: key of a Skip outside a loop over it"},
    {"Skip s = create\nput(s, 1, 2)\nint i\nfor i in s do { string t = (string key s) }",
     "line 5: value of another type than expected"},
    {"Skip s = create\nput(s, 1, 2)\nint i\nfor i in s do put(s, 2, 3)",
     "line 5: a Skip cannot be changed inside a loop over it"},
    {"Skip s = create\nput(s, 1, 2)\nint i\nfor i in s do delete s",
     "line 5: a Skip cannot be changed inside a loop over it"},
    {"Skip s = create\nput(s, 1, 2)\nint i\nfor i in s do break\ni = (int key s)",
     "line 6: key of a Skip outside a loop over it"},
    {"Buffer b = create\ndelete b\nb += \"x\"", "line 4: deleted Buffer used"},
    {"int f(int i) {\nif (i > 1) return i\n}\nint j = f(0)", "line 5: function (f) ended without a return"},
    {"noError()\nstring s = lastError()\nint i = 1 / 0", "line 4: division by zero"},
    {"int i = 0\nwhile (true) i++", "line 3: execution time limit reached"},
    {"noError()\nvoid f() { }\nfor (;;) f()", "line 4: execution time limit reached"},
    {"int f(int i) { return f(i + 1) }\nint j = f(0)", "line 2: recursion too deep in function (f)"},
    {"pragma runLim, 0\nstring s = \"x\"\nwhile (true) s = s s", "line 4: text too long"},
    {"pragma runLim, 0\nBuffer b = create\nb += \"x\"\nwhile (true) b += b", "line 5: text too long"},
};

TEST(RuntimeError, EndsTheScript) {
  for (const Row& row : kRows) {
    const Outcome outcome =
        RunScript(std::string("print \"before\"\n").append(row.script).append("\nprint \"after\""));
    EXPECT_EQ(outcome.compile_errors, std::vector<std::string>()) << row.script;
    EXPECT_EQ(outcome.runtime_error, row.error) << row.script;
    EXPECT_EQ(outcome.printed, "before") << row.script;
  }
}

TEST(Run, LeavesThePlaceToTheCallerAndCanBeRepeated) {
  const Library library;
  const CompileResult compiled =
      Compile({u"a.dxl", u"int n = intOf(oleGetResult())\noleSetResult((10 / n) \"\")"}, library);
  ASSERT_TRUE(compiled.program);
  RecordingHost host;
  host.SetResult(u"0");
  const auto error = dxl::Run(*compiled.program, host).error;
  ASSERT_TRUE(error);
  EXPECT_EQ(error->file, u"a.dxl");
  EXPECT_EQ(error->at.column, 18);
  EXPECT_EQ(DoorsReport({*error}), u"-R-E- DXL: <Line:2> division by zero\n-I- DXL: execution halted\n");
  EXPECT_EQ(host.result, u"0") << "a failed script leaves the former result";
  host.SetResult(u"5");
  EXPECT_FALSE(dxl::Run(*compiled.program, host).error);
  EXPECT_EQ(host.result, u"2");
}

TEST(Library, NoticesAPermThatBreaksItsSignature) {
  for (const Value& lie : {Value(), Value(u"text")}) {
    Library library;
    library.Add(u"int lies()", [&](Call&) { return lie; });
    RecordingHost host;
    const CompileResult compiled = Compile({u"", u"int i = lies"}, library);
    ASSERT_TRUE(compiled.program);
    EXPECT_THROW(dxl::Run(*compiled.program, host), std::logic_error);
  }
}

}  // namespace

}  // namespace kestrune::dxl
