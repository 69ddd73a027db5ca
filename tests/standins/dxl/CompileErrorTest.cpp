// One wrong script per row, and the first thing that is said about it.
#include <gtest/gtest.h>
#include <span>

#include "ScriptRun.h"

namespace kestrune::dxl {

namespace {

struct Row {
  const char* script;
  const char* error;
};

constexpr Row kLines[] = {
    {"int i = 1 int j = 2", "line 2: syntax error"},
    {"string s = \"a\"\n\"b\"\nint i = \"x\"", "line 4: incorrect arguments for (=)"},
    {"print cistrcmp(\"a\", // why\n\"b\")", "line 2: syntax error"},
    {"int i = 1\n+ 2 3", "line 3: incorrectly concatenated tokens"},
    {"string s[2]\nprint s\n[0]", "line 4: syntax error"},
    {"if (true) // why\nprint \"x\"",
     "line 2: a comment between the head of a statement and a body without braces is not supported here"},
    {"if (true) {\nprint \"a\"", "line 3: syntax error"},
    {"print \"abc\nprint 1", "line 2: unterminated literal"},
    {"/* abc", "line 2: unterminated comment"},
    {"if (true) then print \"a\"", "line 2: syntax error"},
};

constexpr Row kWords[] = {
    {"switch (1) {}", "line 2: switch is not supported here"},
    {"static int i", "line 2: static is not supported here"},
    {"int module = 1", "line 2: syntax error"},
    {"int by = 1", "line 2: syntax error"},
    {"int _x", "line 2: unexpected character (_)"},
    {"int i = 1 -> 2", "line 2: the operator -> is not supported here"},
    {"void show(DB box, int i) {}", "line 2: the type DB is not supported here"},
    {"DB box = create \"Title\"", "line 2: the type DB is not supported here"},
    {"save(null, 1)", "line 2: the perm save is not supported here"},
    {"int i = 1 \x02", "line 2: unexpected character (U+0002)"},
    {"int i = 1 @", "line 2: unexpected character (@)"},
    {"int i = (1 <? 2)", "line 2: the operator <? is not supported here"},
    {"int &i", "line 2: a reference variable is not supported here"},
    {"void f(void g(int)) {}", "line 2: syntax error"},
    {"void f(int a = 1) {}", "line 2: a default value of a parameter is not supported here"},
    {"pragma encoding, 1", "line 2: pragma encoding is not supported here"},
    {"int i = 09", "line 2: malformed number"},
    {"int i = 2147483648", "line 2: number too large"},
    {"int i = 12ab", "line 2: malformed number"},
    {"char c = 'ab'", "line 2: malformed character"},
};

constexpr Row kNames[] = {
    {"Foo x", "line 2: undeclared variable (Foo)"},
    {"f(1, 2)\nvoid f(int i, int j) {}", "line 2: undeclared variable (f)"},
    {"{\nint i = 1\n}\nprint i", "line 5: undeclared variable (i)"},
    {"void f() {\nint a = 1\nvoid g() {\nprint a\n}\n}", "line 5: undeclared variable (a)"},
    {"x = null", "line 2: undeclared variable (x)"},
    {"x = create", "line 2: undeclared variable (x)"},
    {"x += 1", "line 2: undeclared variable (x)"},
    {"length = 1", "line 2: incorrect arguments for (=)"},
    {"const int k = 1\nk = 2", "line 3: incorrect arguments for (=)"},
    {"const int k = 1\nvoid f(int &i) { i = 2 }\nf(k)", "line 4: incorrect arguments for function (f)"},
    {"void f() {}\nvoid f() {}", "line 3: function (f) is already defined"},
    {"void f(int)", "line 2: function (f) is declared but not defined"},
};

constexpr Row kTypes[] = {
    {"while (1) {}", "line 2: incorrect arguments: a condition must be a bool"},
    {"real r = 1", "line 2: incorrect arguments for (=)"},
    {"void f(int &i) {}\nf(1)", "line 3: incorrect arguments for function (f)"},
    {"string s = \"a\"\ns += \"b\"", "line 3: incorrect arguments for (+=)"},
    {"Skip s = create\nbool same = null != s", "line 3: != of type Skip is not supported here"},
    {"Skip s = create\nint i = key s", "line 3: incorrect arguments for (=)"},
    {"break", "line 2: break outside a loop"},
    {"int f() {\nreturn\n}", "line 3: incorrect arguments for (return)"},
    {"void v", "line 2: a variable cannot be void"},
    {"int a[1]\nint b[1]\na = b", "line 4: incorrect arguments for (=)"},
    {"int a[]", "line 2: an array needs a size"},
};

void ExpectErrors(std::span<const Row> rows) {
  for (const Row& row : rows) {
    const Outcome outcome = RunScript(std::string("print \"ran\"\n").append(row.script));
    EXPECT_EQ(outcome.compile_errors.empty() ? "" : outcome.compile_errors.front(), row.error) << row.script;
    EXPECT_EQ(outcome.printed, "") << row.script;
  }
}

TEST(CompileError, IsFoundBeforeAnythingRuns) {
  ExpectErrors(kLines);
  ExpectErrors(kWords);
  ExpectErrors(kNames);
  ExpectErrors(kTypes);
}

TEST(ErrorText, ShowsTheLineAndThePlace) {
  const Text script = u"int n = 1\r\n\tif (n == totla) print \"x\"\r\n";
  const Library library;
  const CompileResult compiled = Compile({u"a.dxl", script}, library);
  ASSERT_EQ(compiled.errors.size(), 1u);
  EXPECT_EQ(compiled.errors[0].at.column, 11);
  EXPECT_EQ(Explain(compiled.errors, script),
            u"a.dxl:2:11: undeclared variable (totla)\n\tif (n == totla) print \"x\"\n\t         ^\n");
  EXPECT_EQ(
      CheckDxl({u"", script}, library),
      u"-E- DXL: <Line:2> undeclared variable (totla)\n-I- DXL: all done with 1 error and 0 warnings\n");
  EXPECT_EQ(CheckDxl({u"", u"print \"fine\""}, library), u"");
}

}  // namespace

}  // namespace kestrune::dxl
