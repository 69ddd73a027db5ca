#include "tests/options/OptionsTest.h"

namespace kestrune::testing {
namespace {

TEST_F(OptionsTest, RefreshReadsTheNamesThatARuleCanHold) {
  Options options(doors);
  Load(options, {u"A --> Name", u"B --> Alias"});
  app->attributes = {u"\"q\"'", u"A --> B", u"[@x]", u"a&b<c", u"", u"  ", u"A\r\nB", u"B"};
  EXPECT_TRUE(options.RefreshDoorsAttributes(app->module));
  EXPECT_EQ(RulesOf(options), Lines({u"\"q\"'", u"A --> B", u"B --> Alias", u"[@x]", u"a&b<c"}));
  EXPECT_EQ(options.LostRules.size(), 1u);
  EXPECT_FALSE(IsFile(folder.File(u"export.xml"))) << "the export is deleted";
}

TEST_F(OptionsTest, RefreshMayBeginWithTheDefaults) {
  Options options(doors);
  Load(options, {u"Status --> Name"});
  app->attributes = {u"Status", u"Object Heading", u"Object Text", u"Created On"};
  EXPECT_TRUE(options.RefreshDoorsAttributes(app->module, true));
  EXPECT_EQ(RulesOf(options), Lines({u"Created On --> (Tagged Value)", u"Object Heading",
                                     u"Object Text --> Notes", u"Status"}));
  EXPECT_TRUE(options.LostRules.empty()) << "nobody has made the defaults for this module";
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
    app->answer_instead = answer;
    desktop.OnMessage([&, expected = expected](const Message& message) {
      EXPECT_TRUE(message.Body.starts_with(expected)) << ToUtf8(message.Body);
      EXPECT_EQ(message.Icon, Icon::kStop);
      return Answer::kOk;
    });
    EXPECT_FALSE(options.RefreshDoorsAttributes(app->module, true));
    EXPECT_EQ(RulesOf(options), Lines({u"A --> Name"}));
  }
}

}  // namespace
}  // namespace kestrune::testing
