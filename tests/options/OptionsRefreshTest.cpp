#include "tests/options/OptionsTest.h"

namespace kestrune::testing {
namespace {

struct RefreshCase {
  const char* what;
  Lines before, attributes, after;
};

const Lines kCombined = {u"A [: B] --> Name"};

TEST_F(OptionsTest, RefreshBringsTheRulesInLineWithTheModule) {
  const RefreshCase cases[] = {
      {"new ones are listed", {u"A --> Name"}, {u"C", u"B", u"A"}, {u"A --> Name", u"B", u"C"}},
      {"one that has gone takes its rule along", {u"A --> Name", u"B"}, {u"B"}, {u"B"}},
      {"the second of a rule is not listed again", kCombined, {u"A", u"B"}, kCombined},
      {"a second one that has gone stays in its rule", kCombined, {u"A"}, kCombined},
      {"a first one that has gone frees the second", kCombined, {u"B"}, {u"B"}},
      {"so it does without a target", {u"A [: B] -->"}, {u"B"}, {u"B"}},
      {"both may go", {u"A [: B] --> Name", u"C"}, {u"C"}, {u"C"}},
      {"case", {u"status --> Name"}, {u"Status", u"STATUS"}, {u"STATUS", u"Status"}},
      {"a name listed twice stands once", {}, {u"A", u"A"}, {u"A"}},
      {"signs", {}, {u"\"q\"'", u"A --> B", u"[@x]", u"a&b<c"}, {u"\"q\"'", u"A --> B", u"[@x]", u"a&b<c"}},
      {"names that no rule can hold are passed over", {}, {u"", u"  ", u"A\r\nB", u"C"}, {u"C"}},
      {"an empty list leaves nothing", {u"A --> Name"}, {}, {}},
  };
  for (const RefreshCase& each : cases) {
    Options options(doors);
    Load(options, each.before);
    app->Attributes = each.attributes;
    EXPECT_TRUE(options.RefreshDoorsAttributes(app->Module)) << each.what;
    EXPECT_EQ(RulesOf(options), each.after) << each.what;
    EXPECT_EQ(options.Rules.size(), 5 + each.after.size()) << each.what;
  }
  EXPECT_FALSE(IsFile(folder.File(u"export.xml"))) << "the export is deleted";
}

TEST_F(OptionsTest, RefreshMayBeginWithTheDefaults) {
  Options options(doors);
  Load(options, {u"Status --> Name"});
  app->Attributes = {u"Status", u"Object Heading", u"Object Text", u"Created On"};
  EXPECT_TRUE(options.RefreshDoorsAttributes(app->Module, true));
  EXPECT_EQ(RulesOf(options), Lines({u"Created On --> (Tagged Value)", u"Object Heading",
                                     u"Object Text --> Notes", u"Status"}));
}

TEST_F(OptionsTest, RefreshThatFailsSaysWhyAndChangesNothing) {
  const Text broken = folder.File(u"broken.xml"), other = folder.File(u"other.xml"),
             missing = folder.File(u"missing.xml");  // an n after a back slash would become a line break
  WriteFile(broken, "<DoorsModule>");
  WriteFile(other, "<Other/>");
  const std::pair<Text, Text> cases[] = {
      {u"Error: Module '/x' not found.", u"Error: Module '/x' not found."},
      {u"error in DOORS", u"error in DOORS"},
      {u"", LoadResText(text::kInvalidResponse)},
      {other, LoadResText(text::kInvalidResponse)},
      {broken, u"Can't read XML (" + broken + u")"},
      {missing, u"Can't read XML (" + missing + u")"},
  };
  for (const auto& [answer, expected] : cases) {
    Options options(doors);
    Load(options, {u"A --> Name"});
    app->AnswerInstead = answer;
    desktop.OnMessage([&, expected = expected](const Message& message) {
      EXPECT_TRUE(message.Body.starts_with(expected)) << ToUtf8(message.Body);
      EXPECT_EQ(message.Icon, Icon::kStop);
      return Answer::kOk;
    });
    EXPECT_FALSE(options.RefreshDoorsAttributes(app->Module, true));
    EXPECT_EQ(RulesOf(options), Lines({u"A --> Name"}));
  }
}

}  // namespace
}  // namespace kestrune::testing
