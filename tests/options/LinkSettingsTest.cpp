#include <gtest/gtest.h>

#include "common/Resources.h"
#include "platform/Automation.h"
#include "tests/options/PeerLog.h"
#include "tests/options/Rules.h"

namespace kestrune::testing {
namespace {

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
      {{u"A [: B] --> Name", u"C [: D] --> Notes"}, u"B [: C] --> Alias", {u"B [: C] --> Alias"}},
      {{u"A", u"A [: B] --> Name"}, u"B --> Notes", {u"B --> Notes"}},  // also what has gone has taken away
  };
  for (const auto& each : cases) {
    LinkSettings settings = SettingsOf(each.before);
    settings.AddMapping(each.mapping);
    EXPECT_EQ(RulesOf(settings), each.after) << ToUtf8(each.mapping);
    EXPECT_EQ(RuleText(settings.Rules[2]), kFixedRules[1]);
    Text at_once = LoadResText(text::kTemplateHeader);
    for (const Text& rule : each.before) at_once.append(kCrLf).append(rule);
    LinkSettings pasted = SettingsOf({});
    pasted.ApplyTemplate(at_once.append(kCrLf).append(each.mapping));
    settings.Sort();
    EXPECT_EQ(pasted.Rules, settings.Rules) << ToUtf8(at_once);
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
  EXPECT_THROW(to.ApplyTemplate(u"Orim Studio Mapping Template\r\nB --> Notes\r\nC [: D --> Name"),
               AutomationError);
  EXPECT_EQ(RulesOf(to), rules) << "what is no template changes nothing";
}

struct AttributesCase {
  const char* what;
  Lines before, attributes, after, losses;
};

const Lines kCombined = {u"A [: B] --> Name"};

TEST(LinkSettings, FollowTheModulesAttributesAndSayWhatARuleHasLost) {
  const AttributesCase cases[] = {
      {"new ones are listed", {u"A --> Name"}, {u"C", u"B", u"A"}, {u"A --> Name", u"B", u"C"}, {}},
      {"one that has gone takes its rule along",
       {u"A --> Name", u"B", u"C"},
       {u"B"},
       {u"B"},
       {u"The module has no attribute \"A\" any more: the rule \"A --> Name\" was dropped."}},
      {"the second of a rule is not listed again", kCombined, {u"A", u"B"}, kCombined, {}},
      {"a second one that has gone stays in its rule",
       kCombined,
       {u"A"},
       kCombined,
       {u"The module has no attribute \"B\" any more: the rule \"A [: B] --> Name\" imports \"A\" alone."}},
      {"a first one that has gone frees the second",
       kCombined,
       {u"B"},
       {u"B"},
       {u"The module has no attribute \"A\" any more: the rule \"A [: B] --> Name\" was dropped."}},
      {"so it does without a target", {u"A [: B] -->"}, {u"B"}, {u"B"}, {}},
      {"case",
       {u"status --> Name"},
       {u"Status", u"STATUS"},
       {u"STATUS", u"Status"},
       {u"The module has no attribute \"status\" any more: the rule \"status --> Name\" was dropped."}},
      {"a name listed twice stands once", {}, {u"A", u"A"}, {u"A"}, {}},
      {"an empty list leaves nothing", {u"A"}, {}, {}, {}},
  };
  for (const AttributesCase& each : cases) {
    LinkSettings settings = SettingsOf(each.before);
    EXPECT_EQ(settings.TakeAttributes(each.attributes), each.losses) << each.what;
    EXPECT_EQ(RulesOf(settings), each.after) << each.what;
    EXPECT_EQ(settings.Rules.size(), 5 + each.after.size()) << each.what;
  }
}

TEST(LinkSettings, OfTwoRulesForOneFieldTheEarlierIsUsed) {
  const LinkSettings settings =
      SettingsOf({u"A --> Status", u"B --> (Tagged Value)", u"C --> (Tagged Value)", u"D", u"E --> Status",
                  u"F --> (Calculated) Parent", u"G --> Status", u"Object Identifier --> (Tagged Value)"});
  std::vector<std::pair<Text, Text>> unused;
  for (const UnusedRule& each : settings.UnusedRules())
    unused.emplace_back(settings.GetAttributeName(each.Slot), each.Why);
  ASSERT_EQ(unused.size(), 3u);
  EXPECT_EQ(unused[0].first, u"E");
  EXPECT_EQ(
      unused[0].second,
      u"The rule \"E --> Status\" is not used: \"A --> Status\" fills the same field. Remove one of the "
      u"two in the options.");
  EXPECT_EQ(unused[1].first, u"F") << "a fixed rule comes first";
  EXPECT_EQ(unused[2].first, u"G");
}

struct ListForm : Form {
  ListView lvMappings{this, u"lvMappings"};
};

TEST(LinkSettings, AreListedAfreshWithoutAJumpToTheTop) {
  const LinkSettings settings = SettingsOf({u"A", u"B --> Name", u"C"});
  ListForm form;
  PeerLog log;
  form.Open(&log);
  settings.FillListBox(form.lvMappings);
  settings.FillListBox(form.lvMappings, {6, 7});
  EXPECT_EQ(log.rows, (std::vector<std::size_t>{0, 1}));
  EXPECT_EQ(form.lvMappings.SelectedRows(), (std::vector<std::size_t>{1, 2}));
}

}  // namespace
}  // namespace kestrune::testing
