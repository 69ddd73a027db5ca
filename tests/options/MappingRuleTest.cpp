#include <gtest/gtest.h>

#include "options/MappingRule.h"
#include "platform/Automation.h"

namespace kestrune {
namespace {

struct RuleCase {
  Text line;
  MappingRule expected;
  Text written = line;
};

const RuleCase kRules[] = {
    {u"Status", {u"Status"}},
    {u" Status ", {u" Status "}},  // a bare one is taken untrimmed
    {u"Mass [kg]", {u"Mass [kg]"}},
    {u"From-->To", {u"From-->To"}},
    {u"Status --> Priority", {u"Status", u"", u"", u"Priority"}},
    {u"Created By --> (Tagged Value)", {u"Created By", u"", u"", u"(Tagged Value)"}},
    {u"  A -->B ", {u"A", u"", u"", u"B"}, u"A --> B"},
    {u"A -->", {u"A"}, u"A"},
    {u"A --> B --> C", {u"A", u"", u"", u"B --> C"}},  // the first arrow counts
    {u"A [: B] --> Name", {u"A", u"B", u":", u"Name"}},
    {u"A [: B] --> ", {u"A", u"B", u":", u""}},
    {u"A[: B] --> Name", {u"A", u"B", u":", u"Name"}, u"A [: B] --> Name"},
    {u"A [ B] --> Name", {u"A", u"B", u"", u"Name"}},
    {u"A [  B] --> Name", {u"A", u"B", u"", u"Name"}, u"A [ B] --> Name"},
    {u" A [: B]  --> Name", {u"A", u"B", u":", u"Name"}, u"A [: B] --> Name"},
    {u"A [- : B] --> Name", {u"A", u": B", u"-", u"Name"}},  // a separator ends at its first blank
    {u"A [[ B] --> Name", {u"A", u"B", u"[", u"Name"}},
    {u"A [: Mass [kg]] --> Name", {u"A", u"Mass [kg]", u":", u"Name"}},
    {u"Mass [kg] --> Alias", {u"Mass [kg]", u"", u"", u"Alias"}},
    {u"Mass [kg] of [m]  --> Alias", {u"Mass", u"of [m", u"kg]", u"Alias"}, u"Mass [kg] of [m] --> Alias"},
    {u"Mass [kg] (dry) --> Alias", {u"Mass [kg] (dry)", u"", u"", u"Alias"}},
    {u"Object Identifier --> (Tagged Value)", {u"Object Identifier", u"", u"", u"(Tagged Value)"}},
    {u"Object Identifier [: B] --> Name", {u"Object Identifier", u"B", u":", u"Name"}},
    {u"A [: ] --> Name", {u"A", u"", u"", u"Name"}, u"A --> Name"},
    {u"Größe [· 名前] --> Notes", {u"Größe", u"名前", u"·", u"Notes"}},
};

TEST(RuleText, ReadsAndWritesBack) {
  for (const RuleCase& each : kRules) {
    EXPECT_EQ(ParseRule(each.line), each.expected) << ToUtf8(each.line);
    EXPECT_EQ(RuleText(each.expected), each.written) << ToUtf8(each.line);
    EXPECT_EQ(ParseRule(each.written), each.expected) << ToUtf8(each.line);
  }
  for (const TextView line : {u"", u"  ", u"\t\r\n"}) EXPECT_EQ(ParseRule(line), std::nullopt);
}

TEST(RuleText, RefusesAMalformedLineByName) {
  for (const TextView line : {u"A [B --> Name", u"Mass [per hour] of --> Name", u"A [: B --> Name",
                              u"Object Identifier [: B] --> (Tagged Value)", u"A [ --> Name",
                              u"A [: B] x --> Name", u"A --> Name [x]", u" --> Name", u"[: B] --> Name",
                              u"A [: B --> C] --> Name", u"A [: \t-->B] --> Name"}) {
    try {
      ParseRule(line);
      ADD_FAILURE() << "was read: " << ToUtf8(line);
    } catch (const AutomationError& failure) {
      EXPECT_EQ(failure.Number, error::kMalformedRule);
      EXPECT_NE(failure.Description.find(line), Text::npos) << ToUtf8(failure.Description);
    }
  }
}

TEST(RuleText, ThatDoesNotReadBackIsKnownBeforehand) {
  const std::pair<MappingRule, bool> cases[] = {
      {{u"x [y]"}, true},
      {{u"x [y]", u"", u"", u"Name"}, true},
      {{u"x [y]", u"B", u":", u"Name"}, false},
      {{u"Object Identifier", u"B", u":", u"(Tagged Value)"}, false},
      {{u"x [y z]", u"", u"", u"Name"}, false},  // looks like a combined one
      {{u"A --> B"}, false},
      {{u"A", u"B --> C", u":", u"Name"}, false},
      {{u"A\r\nB"}, false},
      {{u"A "}, false},
      {{}, false},
      {{u"A", u"B", u"- -", u"Name"}, false},
      {{u"A", u"B [kg]", u":", u"Name"}, true},
      {{u"A", u"B", u":", u""}, true},
  };
  for (const auto& [rule, expected] : cases) EXPECT_EQ(ReadsBack(rule), expected) << ToUtf8(RuleText(rule));
}

}  // namespace
}  // namespace kestrune
