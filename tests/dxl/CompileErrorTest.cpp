// One wrong script per row, and the first thing that is said about it.
#include <gtest/gtest.h>

#include "ScriptRun.h"

namespace kestrune::dxl {

namespace {

struct Row {
  const char* name;
  const char* script;
  const char* error;
};

class CompileError : public testing::TestWithParam<Row> {};

TEST_P(CompileError, IsFoundBeforeAnythingRuns) {
  const Outcome outcome = RunScript(std::string("print \"ran\"\n").append(GetParam().script));
  ASSERT_FALSE(outcome.compile_errors.empty());
  EXPECT_EQ(outcome.compile_errors.front(), GetParam().error);
  EXPECT_EQ(outcome.printed, "");
}

constexpr Row kLines[] = {
    {"TwoStatementsOnALine", "int i = 1 int j = 2", "line 2: syntax error"},
    {"ChainOverTheLineEnd", "string s = \"a\"\n\"b\"\nint i = \"x\"", "line 4: incorrect arguments for (=)"},
    {"NewlineAfterACommentAfterAComma", "print cistrcmp(\"a\", // why\n\"b\")", "line 2: syntax error"},
    {"NewlineBeforeAnOperator", "int i = 1\n+ 2 3", "line 3: incorrectly concatenated tokens"},
    {"NewlineBeforeABracket", "string s[2]\nprint s\n[0]", "line 4: syntax error"},
    {"CommentBeforeABareBody", "if (true) // why\nprint \"x\"",
     "line 2: a comment between the head of a statement and a body without braces is not supported"},
    {"ElseAfterSemicolon", "if (true) print \"a\"; else print \"b\"", "line 2: syntax error"},
    {"UnclosedBlock", "if (true) {\nprint \"a\"", "line 3: syntax error"},
    {"UnclosedString", "print \"abc\nprint 1", "line 2: unterminated literal"},
    {"UnclosedComment", "/* abc", "line 2: unterminated comment"},
    {"ThenAfterParens", "if (true) then print \"a\"", "line 2: syntax error"},
};

constexpr Row kWords[] = {
    {"Switch", "switch (1) {}", "line 2: switch is not supported"},
    {"Static", "static int i", "line 2: static is not supported"},
    {"ModuleAsVariable", "int module = 1", "line 2: syntax error"},
    {"ReservedAsVariable", "int by = 1", "line 2: syntax error"},
    {"LeadingUnderscore", "int _x", "line 2: unexpected character (_)"},
    {"Include", "#include <file>", "line 2: syntax error"},
    {"Arrow", "int i = 1 -> 2", "line 2: syntax error"},
    {"MinOperator", "int i = (1 <? 2)", "line 2: the operator <? is not supported"},
    {"ReferenceVariable", "int &i", "line 2: a reference variable is not supported"},
    {"FunctionParameter", "void f(void g(int)) {}", "line 2: syntax error"},
    {"DefaultValue", "void f(int a = 1) {}", "line 2: a default value of a parameter is not supported"},
    {"UnknownPragma", "pragma encoding, 1", "line 2: pragma encoding is not supported"},
    {"BadOctal", "int i = 09", "line 2: malformed number"},
    {"BigNumber", "int i = 2147483648", "line 2: number too large"},
    {"GluedNumber", "int i = 12ab", "line 2: malformed number"},
    {"LongChar", "char c = 'ab'", "line 2: malformed character"},
};

constexpr Row kNames[] = {
    {"UnknownType", "Foo x", "line 2: undeclared variable (Foo)"},
    {"UsedBeforeDeclared", "f(1, 2)\nvoid f(int i, int j) {}", "line 2: undeclared variable (f)"},
    {"OutOfItsBlock", "{\nint i = 1\n}\nprint i", "line 5: undeclared variable (i)"},
    {"LocalOfTheOuterFunction", "void f() {\nint a = 1\nvoid g() {\nprint a\n}\n}",
     "line 5: undeclared variable (a)"},
    {"AutoDeclaredFromNull", "x = null", "line 2: undeclared variable (x)"},
    {"AutoDeclaredFromManyTypes", "x = create", "line 2: undeclared variable (x)"},
    {"AddedToUnknown", "x += 1", "line 2: undeclared variable (x)"},
    {"AssignedPerm", "length = 1", "line 2: incorrect arguments for (=)"},
    {"Constant", "const int k = 1\nk = 2", "line 3: incorrect arguments for (=)"},
    {"ConstantByReference", "const int k = 1\nvoid f(int &i) { i = 2 }\nf(k)",
     "line 4: incorrect arguments for function (f)"},
    {"DefinedTwice", "void f() {}\nvoid f() {}", "line 3: function (f) is already defined"},
    {"NeverDefined", "void f(int)", "line 2: function (f) is declared but not defined"},
    {"HiddenProperty", "string name = \"\"\nAttrDef ad\nfor ad in current Module do print ad.name",
     "line 4: variable (name) hides the property of that name"},
    {"UnknownProperty", "AttrDef ad = null\nprint ad.nothing", "line 3: undeclared variable (nothing)"},
};

constexpr Row kTypes[] = {
    {"IntAsCondition", "while (1) {}", "line 2: incorrect arguments: a condition must be a bool"},
    {"IntsAndReals", "real r = 1", "line 2: incorrect arguments for (=)"},
    {"LiteralByReference", "void f(int &i) {}\nf(1)", "line 3: incorrect arguments for function (f)"},
    {"ConcatenationAssigned", "string s = \"a\"\ns += \"b\"", "line 3: incorrect arguments for (+=)"},
    {"AttributeCompared", "Object o = null\nif (o.\"A\" == \"x\") print \"y\"",
     "line 3: incorrect arguments for (==)"},
    {"AttributeToBool", "Object o = null\nbool b = o.\"A\"", "line 3: incorrect arguments for (=)"},
    {"HandlesOfTwoTypes", "Object o = null\nModule m = null\nbool b = o == m",
     "line 4: incorrect arguments for (==)"},
    {"AnyWithoutCast", "Skip s = create\nint i = key s", "line 3: incorrect arguments for (=)"},
    {"IndexAfterCall", "print upper(\"ab\")[0]",
     "line 2: a call directly before [ without parentheses around it is not supported"},
    {"LoopOverTheWrongType", "int i\nModule m = null\nfor i in entire m do print i",
     "line 4: incorrect arguments for (for)"},
    {"BreakOutside", "break", "line 2: break outside a loop"},
    {"ReturnNothing", "int f() {\nreturn\n}", "line 3: incorrect arguments for (return)"},
    {"VoidVariable", "void v", "line 2: a variable cannot be void"},
    {"WholeArrayAssigned", "int a[1]\nint b[1]\na = b", "line 4: incorrect arguments for (=)"},
    {"ArrayWithoutSize", "int a[]", "line 2: an array needs a size"},
};

std::string RowName(const testing::TestParamInfo<Row>& info) {
  return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Lines, CompileError, testing::ValuesIn(kLines), RowName);
INSTANTIATE_TEST_SUITE_P(Words, CompileError, testing::ValuesIn(kWords), RowName);
INSTANTIATE_TEST_SUITE_P(Names, CompileError, testing::ValuesIn(kNames), RowName);
INSTANTIATE_TEST_SUITE_P(Types, CompileError, testing::ValuesIn(kTypes), RowName);

TEST(ErrorText, ShowsTheLineAndThePlace) {
  const Text script = u"int n = 1\r\n\tif (n == totla) print \"x\"\r\n";
  const Library library;
  const CompileResult compiled = Compile({u"a.dxl", script}, library);
  ASSERT_EQ(compiled.errors.size(), 1u);
  EXPECT_EQ(compiled.errors[0].at.column, 11);
  EXPECT_EQ(Explain(compiled.errors[0], script),
            u"a.dxl:2:11: undeclared variable (totla)\n\tif (n == totla) print \"x\"\n\t         ^\n");
  EXPECT_EQ(
      CheckDxl({u"", script}, library),
      u"-E- DXL: <Line:2> undeclared variable (totla)\n-I- DXL: all done with 1 error and 0 warnings\n");
  EXPECT_EQ(CheckDxl({u"", u"print \"fine\""}, library), u"");
}

}  // namespace

}  // namespace kestrune::dxl
