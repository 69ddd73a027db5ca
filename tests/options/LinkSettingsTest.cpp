#include <gtest/gtest.h>
#include <random>

#include "common/Resources.h"
#include "platform/Automation.h"
#include "tests/options/Rules.h"

namespace kestrune::testing {
namespace {

/// AddMapping one step after the other, as its description has it.
class StepwiseRules {
 public:
  void Add(const MappingRule& rule) {
    Remove(rule.Attribute);
    Remove(rule.CombinedAttribute);
    rules.push_back(rule);
  }
  std::vector<MappingRule> rules;

 private:
  void Remove(const Text& name) {
    if (name.empty()) return;
    std::erase_if(rules, [&](const MappingRule& rule) {
      return rule.Attribute == name || rule.CombinedAttribute == name;
    });
  }
};

TEST(LinkSettings, StartsWithTheUnusedSlotAndLoadsFixedAndDefaultRules) {
  LinkSettings settings;
  EXPECT_EQ(settings.Rules, std::vector<MappingRule>(1));
  settings.RestrictToView = u"Mine";
  settings.ResetToDefaults();
  EXPECT_EQ(settings.RestrictToView, u"Mine");
  EXPECT_EQ(settings.Rules[0], MappingRule());
  for (std::size_t slot = 1; slot <= 4; ++slot)
    EXPECT_EQ(RuleText(settings.Rules[slot]), kFixedRules[slot - 1]);
  EXPECT_EQ(RulesOf(settings),
            Lines({u"Created By --> (Tagged Value)", u"Created On --> (Tagged Value)",
                   u"Last Modified On --> (Tagged Value)", u"Object Number [: Object Heading] --> Name",
                   u"Object Text --> Notes"}));
}

TEST(LinkSettings, AddMappingAppendsAndTakesTheAttributesFromOtherRules) {
  struct {
    Lines before;
    TextView mapping;
    Lines after;
  } const cases[] = {
      {{u"A", u"B"}, u"A --> Name", {u"B", u"A --> Name"}},
      {{u"A [: B] --> Name", u"C"}, u"B --> Name", {u"C", u"B --> Name"}},
      {{u"A --> Name", u"B"}, u"C [: A] --> Notes", {u"B", u"C [: A] --> Notes"}},
      {{u"A --> Name", u"B [: C] --> Notes"}, u"A [: C] --> Alias", {u"A [: C] --> Alias"}},
      {{u"a", u"A"}, u"A --> Name", {u"a", u"A --> Name"}},
      {{u"A"}, u"  ", {u"A"}},
      {{u"Object Level"}, u"Object Level --> Name", {u"Object Level --> Name"}},
  };
  for (const auto& each : cases) {
    LinkSettings settings = SettingsOf(each.before);
    settings.AddMapping(each.mapping);
    EXPECT_EQ(RulesOf(settings), each.after) << ToUtf8(each.mapping);
    EXPECT_EQ(RuleText(settings.Rules[2]), kFixedRules[1]);
  }
}

TEST(LinkSettings, AddsManyRulesAsIfEachWereAddedAlone) {
  std::mt19937 dice(3);
  const auto name = [&dice] { return Text(1, static_cast<char16_t>(u'A' + dice() % 6)); };
  for (int run = 0; run < 300; ++run) {
    LinkSettings settings;
    settings.ResetToDefaults();
    ASSERT_TRUE(settings.ApplyTemplate(LoadResText(text::kTemplateHeader)));
    StepwiseRules expected;
    for (const Text& line : RulesOf(settings)) expected.Add(*ParseRule(line));
    Text lines = LoadResText(text::kTemplateHeader);
    for (std::size_t i = dice() % 12; i > 0; --i) {
      const MappingRule rule = {name(), dice() % 2 ? name() : u"", u"", dice() % 2 ? u"Name" : u""};
      lines.append(kCrLf).append(RuleText(rule));
      expected.Add(rule);
    }
    ASSERT_TRUE(settings.ApplyTemplate(lines));
    std::stable_sort(expected.rules.begin(), expected.rules.end(),
                     [](const auto& a, const auto& b) { return a.Attribute < b.Attribute; });
    ASSERT_EQ(std::vector<MappingRule>(settings.Rules.begin() + 5, settings.Rules.end()), expected.rules)
        << ToUtf8(lines);
  }
}

TEST(LinkSettings, FindsRulesByEitherAttributeButNeverTheFixedOnes) {
  const LinkSettings settings = SettingsOf({u"A [: B] --> Name", u"C"});
  for (const TextView name : {u"A", u"B"}) EXPECT_EQ(settings.FindAttribute(name), 5u);
  EXPECT_EQ(RuleText(settings.GetRule(u"B")), u"A [: B] --> Name");
  for (const TextView missing : {u"c", u"", u"Object Level"}) EXPECT_EQ(settings.FindAttribute(missing), 0u);
  EXPECT_THROW(settings.GetRule(u"Object Level"), AutomationError);
}

TEST(LinkSettings, ForgettingAnAttributeLeavesItsPartner) {
  struct {
    TextView name;
    Lines after;
  } const cases[] = {{u"A", {u"B", u"C --> Notes"}},
                     {u"B", {u"A", u"C --> Notes"}},
                     {u"C", {u"A [: B] --> Name"}},
                     {u"X", {u"A [: B] --> Name", u"C --> Notes"}},
                     {u"", {u"A [: B] --> Name", u"C --> Notes"}}};
  for (const auto& each : cases) {
    LinkSettings settings = SettingsOf({u"A [: B] --> Name", u"C --> Notes"});
    settings.RemoveAttribute(each.name);
    EXPECT_EQ(RulesOf(settings), each.after) << ToUtf8(each.name);
  }
}

TEST(LinkSettings, OffersWhatIsStillFree) {
  const LinkSettings settings = SettingsOf({u"A --> name", u"B --> (Tagged Value)", u"C", u"D --> Notes",
                                            u"E [: F] -->", u"G --> No such field", u"c"});
  EXPECT_EQ(settings.GetUnusedDOORSAttributes(), Lines({u"C", u"E", u"c"}));
  EXPECT_EQ(settings.GetUnusedOrimFields(), Lines({u"Alias", u"Status", u"Difficulty", u"Priority", u"Author",
                                                   u"KeyWords", u"Phase", u"Version"}));
}

TEST(LinkSettings, TemplateCarriesTheMappedRulesToAnotherPackage) {
  const LinkSettings from = SettingsOf({u"A [: B] --> Name", u"C", u"D --> (Tagged Value)"});
  EXPECT_EQ(from.GetTemplate(),
            u"Orim Studio Mapping Template\r\nA [: B] --> Name\r\nD --> (Tagged Value)\r\n");
  LinkSettings to = SettingsOf({u"A", u"B --> Notes", u"C [: E] --> Name"});
  EXPECT_TRUE(to.ApplyTemplate(from.GetTemplate()));
  const Lines rules = {u"A [: B] --> Name", u"C", u"D --> (Tagged Value)", u"E"};
  EXPECT_EQ(RulesOf(to), rules);
  for (const TextView none : {u"", u"A --> Notes", u"orim studio mapping template\r\nA --> Notes"})
    EXPECT_FALSE(to.ApplyTemplate(none));
  EXPECT_THROW(to.ApplyTemplate(u"Orim Studio Mapping Template\r\nB --> Notes\r\nC [:D] --> Name"),
               AutomationError);
  EXPECT_EQ(RulesOf(to), rules) << "what is no template changes nothing";
}

}  // namespace
}  // namespace kestrune::testing
