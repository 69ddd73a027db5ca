#include <gtest/gtest.h>

#include "options/MappingRule.h"
#include "platform/Automation.h"

namespace kestrune {
namespace {

struct RuleCase {
  const char* name;
  Text line;
  MappingRule expected;
  Text written = line;
};

template <typename Case>
std::string NameOf(const ::testing::TestParamInfo<Case>& info) {
  return info.param.name;
}

class ReadRule : public ::testing::TestWithParam<RuleCase> {};

TEST_P(ReadRule, ReadsAndWritesBack) {
  EXPECT_EQ(ParseRule(GetParam().line), GetParam().expected);
  EXPECT_EQ(RuleText(GetParam().expected), GetParam().written);
  EXPECT_EQ(ParseRule(GetParam().written), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    RuleText, ReadRule,
    ::testing::Values(
        RuleCase{"Bare", u"Status", {u"Status"}},
        RuleCase{"BareIsTakenUntrimmed", u" Status ", {u" Status "}},
        RuleCase{"BareWithBrackets", u"Mass [kg]", {u"Mass [kg]"}},
        RuleCase{"BareWithAnArrowOfItsOwn", u"From-->To", {u"From-->To"}},
        RuleCase{"Mapped", u"Status --> Priority", {u"Status", u"", u"", u"Priority"}},
        RuleCase{"Tagged", u"Created By --> (Tagged Value)", {u"Created By", u"", u"", u"(Tagged Value)"}},
        RuleCase{"NoBlankAfterTheArrow", u"  A -->B ", {u"A", u"", u"", u"B"}, u"A --> B"},
        RuleCase{"NoTargetAfterTheArrow", u"A -->", {u"A"}, u"A"},
        RuleCase{"FirstArrowCounts", u"A --> B --> C", {u"A", u"", u"", u"B --> C"}},
        RuleCase{"Combined",
                 u"Object Number [: Object Heading] --> Name",
                 {u"Object Number", u"Object Heading", u":", u"Name"}},
        RuleCase{"CombinedWithoutTarget", u"A [: B] --> ", {u"A", u"B", u":", u""}},
        RuleCase{
            "NoBlankBeforeTheBracket", u"A[: B] --> Name", {u"A", u"B", u":", u"Name"}, u"A [: B] --> Name"},
        RuleCase{"EmptySeparator", u"A [ B] --> Name", {u"A", u"B", u"", u"Name"}},
        RuleCase{"BlankSeparatorReadsBackEmpty",
                 u"A [  B] --> Name",
                 {u"A", u"B", u"", u"Name"},
                 u"A [ B] --> Name"},
        RuleCase{"SeparatorEndsAtItsFirstBlank", u"A [- : B] --> Name", {u"A", u": B", u"-", u"Name"}},
        RuleCase{"BracketAsSeparator", u"A [[ B] --> Name", {u"A", u"B", u"[", u"Name"}},
        RuleCase{"SecondNameWithBrackets", u"A [: Mass [kg]] --> Name", {u"A", u"Mass [kg]", u":", u"Name"}},
        RuleCase{"SeparatorOfNothing", u"A [: ] --> Name", {u"A", u"", u"", u"Name"}, u"A --> Name"},
        RuleCase{"Unicode", u"Größe [· 名前] --> Notes", {u"Größe", u"名前", u"·", u"Notes"}}),
    NameOf<RuleCase>);

TEST(ReadRule, ABlankLineIsNoRule) {
  for (const TextView line : {u"", u"  ", u"\t\r\n"}) EXPECT_EQ(ParseRule(line), std::nullopt);
}

TEST(ReadRule, RefusesAMalformedLineByName) {
  for (const TextView line :
       {u"A [B] --> Name", u"A [:B] --> Name", u"Mass [kg] --> Name", u"A [: B --> Name",
        u"A [: B]  --> Name", u"A [ --> Name", u"A [: B] x --> Name", u"A --> Name [x]", u" --> Name",
        u"[: B] --> Name", u"A [: B --> C] --> Name"}) {
    try {
      ParseRule(line);
      ADD_FAILURE() << "was read: " << ToUtf8(line);
    } catch (const AutomationError& failure) {
      EXPECT_EQ(failure.Number, error::kBase);
      EXPECT_NE(failure.Description.find(line), Text::npos) << ToUtf8(failure.Description);
    }
  }
}

struct ReadsBackCase {
  const char* name;
  MappingRule rule;
  bool expected;
};

class RuleReadsBack : public ::testing::TestWithParam<ReadsBackCase> {};

TEST_P(RuleReadsBack, IsKnownBeforehand) {
  EXPECT_EQ(ReadsBack(GetParam().rule), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    PeculiarNames, RuleReadsBack,
    ::testing::Values(ReadsBackCase{"BareBrackets", {u"x [y]"}, true},
                      ReadsBackCase{"MappedBrackets", {u"x [y]", u"", u"", u"Name"}, false},
                      ReadsBackCase{"MappedBracketsThatLookCombined", {u"x [y z]", u"", u"", u"Name"}, false},
                      ReadsBackCase{"BareArrow", {u"A --> B"}, false},
                      ReadsBackCase{"ArrowInSecond", {u"A", u"B --> C", u":", u"Name"}, false},
                      ReadsBackCase{"LineBreak", {u"A\r\nB"}, false},
                      ReadsBackCase{"BlankAtTheEnd", {u"A "}, false}, ReadsBackCase{"Empty", {}, false},
                      ReadsBackCase{"BlankInSeparator", {u"A", u"B", u"- -", u"Name"}, false},
                      ReadsBackCase{"SecondNameWithBrackets", {u"A", u"B [kg]", u":", u"Name"}, true},
                      ReadsBackCase{"CombinedWithoutTarget", {u"A", u"B", u":", u""}, true}),
    NameOf<ReadsBackCase>);

}  // namespace
}  // namespace kestrune
