// What expressions come to, as `print (expression) ""` shows it, and how tightly operators bind.
#include <gtest/gtest.h>

#include "ScriptRun.h"

namespace kestrune::dxl {

namespace {

struct Row {
  const char* expression;
  const char* printed;
};

constexpr Row kArithmetic[] = {
    {"1 + 2 * 3", "7"},
    {"(1 + 2) * 3", "9"},
    {"10 - 4 - 3", "3"},
    {"17 / 5 % 2", "1"},
    {"-17 / 5", "-3"},
    {"-17 % 5", "-2"},
    {"- -3", "3"},
    {"~5", "-6"},
    {"6 & 3 | 8", "10"},
    {"5 ^ 1", "4"},
    {"2147483647 + 1", "-2147483648"},
    {"(-2147483647 - 1) / -1", "-2147483648"},
    {"0x7FFFFFFF * 2", "-2"},
    {"1.5 + 2.25", "3.750000"},
    {"-1.5 * 2.0", "-3.000000"},
    {"1.0 / 4.0", "0.250000"},
    {"length \"abc\" + 1", "4"},
    {"1 + length \"abc\"", "4"},
    {"intOf(-2.5)", "-3"},
    {"intOf(2147483647.4)", "2147483647"},
};

constexpr Row kLogic[] = {
    {"1 < 2 == true", "true"},
    {"1 + 1 == 2 && 2 * 2 > 3", "true"},
    {"true || false && false", "true"},
    {"(true || false) && false", "false"},
    {"true or false and false", "true"},
    {"!true || true", "true"},
    {"!(true || true)", "false"},
    {"!null \"x\" && null \"\"", "true"},
    {"\"a\" \"b\" == \"ab\"", "true"},
    {"\"B\" < \"a\"", "true"},
    {"\"a\" <= \"a\" && \"a\" >= \"a\" && !(\"a\" > \"a\")", "true"},
    {"'a' < 'b' && 'a' != 'b'", "true"},
    {"1.5 >= 1.5 && 1.5 <= 1.5 && !(1.5 < 1.5) && 1.5 == 1.5", "true"},
    {"true != false", "true"},
    {"null 0 && null false && null null", "true"},
    {"on == true && off == false", "true"},
};

constexpr Row kChoice[] = {
    {"true ? 1 : 2", "1"},       {"false ? 1 : true ? 2 : 3", "2"},      {"1 > 2 ? \"a\" : \"b\"", "b"},
    {"true ? null : \"x\"", ""}, {"length(true ? \"abc\" : null)", "3"}, {"1 + (false ? 1 : 2)", "3"},
};

constexpr Row kTexts[] = {
    {"\"abc\"[1]", "b"},
    {"\"abc\"[0:0]", "a"},
    {"\"abc\"[1:]", "bc"},
    {"\"abcdef\"[length \"a\" : length \"abc\"]", "bcd"},
    {"(\"ab\" \"cd\")[2:3]", "cd"},
    {"'a' \"\" 1 \"\" 2.0 \"\" true \"\"", "a12.000000true"},
    {"lower(\"A\") \"B\"", "ab"},
    {"(lower \"A\") \"B\"", "aB"},
    {"lower upper lower \"aB\"", "ab"},
    {"upper(lower(\"a\" \"B\") \"c\")", "ABC"},
    {"cistrcmp(\"b\", \"A\")", "1"},
    {"cistrcmp(\"b\" \"c\", \"BC\")", "0"},
};

std::string Printed(const char* expression) {
  const Outcome outcome = RunScript(std::string("print (").append(expression).append(") \"\""));
  if (!outcome.compile_errors.empty()) return outcome.compile_errors.front();
  return outcome.runtime_error.empty() ? outcome.printed : outcome.runtime_error;
}

TEST(Expression, ComesTo) {
  for (const Row& row : kArithmetic) EXPECT_EQ(Printed(row.expression), row.printed) << row.expression;
  for (const Row& row : kLogic) EXPECT_EQ(Printed(row.expression), row.printed) << row.expression;
  for (const Row& row : kChoice) EXPECT_EQ(Printed(row.expression), row.printed) << row.expression;
  for (const Row& row : kTexts) EXPECT_EQ(Printed(row.expression), row.printed) << row.expression;
}

}  // namespace

}  // namespace kestrune::dxl
