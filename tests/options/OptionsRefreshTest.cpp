#include "doors/frmConnectProgress.h"
#include "tests/options/OptionsTest.h"

namespace kestrune::testing {
namespace {

struct RefreshCase {
  const char* what;
  Lines before;
  Lines attributes;
  Lines after;
};

TEST_F(OptionsTest, RefreshBringsTheRulesInLineWithTheModule) {
  const RefreshCase cases[] = {
      {"a new attribute is listed, unmapped",
       {u"A --> Name"},
       {u"C", u"B", u"A"},
       {u"A --> Name", u"B", u"C"}},
      {"an attribute that has gone takes its rule along", {u"A --> Name", u"B"}, {u"B"}, {u"B"}},
      {"the second attribute of a rule is not listed again",
       {u"A [: B] --> Name"},
       {u"A", u"B"},
       {u"A [: B] --> Name"}},
      {"a second attribute that has gone stays in its rule",
       {u"A [: B] --> Name"},
       {u"A"},
       {u"A [: B] --> Name"}},
      {"a first attribute that has gone frees the second", {u"A [: B] --> Name"}, {u"B"}, {u"B"}},
      {"so it does without a target", {u"A [: B] -->"}, {u"B"}, {u"B"}},
      {"both may go", {u"A [: B] --> Name", u"C"}, {u"C"}, {u"C"}},
      {"names differ by case", {u"status --> Name"}, {u"Status", u"STATUS"}, {u"STATUS", u"Status"}},
      {"a name listed twice stands once", {}, {u"A", u"A"}, {u"A"}},
      {"names hold whatever they like",
       {},
       {u"\"q\"'", u"A --> B", u"[@x]", u"a&b<c"},
       {u"\"q\"'", u"A --> B", u"[@x]", u"a&b<c"}},
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
}

TEST_F(OptionsTest, RefreshMayBeginWithTheDefaults) {
  Options options(doors);
  Load(options, {u"Status --> Name"});
  app->Attributes = {u"Status", u"Object Heading", u"Object Text", u"Created On"};
  EXPECT_TRUE(options.RefreshDoorsAttributes(app->Module, true));
  EXPECT_EQ(RulesOf(options), Lines({u"Created On --> (Tagged Value)", u"Object Heading",
                                     u"Object Text --> Notes", u"Status"}));
}

TEST_F(OptionsTest, RefreshDeletesTheExportOfTheModule) {
  Options options(doors);
  options.LoadDefault(package);
  EXPECT_TRUE(options.RefreshDoorsAttributes(app->Module));
  EXPECT_FALSE(IsFile(folder.File(u"export.xml")));
}

TEST_F(OptionsTest, RefreshThatFailsSaysWhyAndChangesNothing) {
  WriteFile(folder.File(u"broken.xml"), "<DoorsModule>");
  WriteFile(folder.File(u"other.xml"), "<Other/>");
  struct {
    Text answer, message;
  } const cases[] = {
      {u"Error: Module '/x' not found.", u"Error: Module '/x' not found."},
      {u"error in DOORS", u"error in DOORS"},
      {u"", LoadResText(text::kInvalidResponse)},
      {folder.File(u"other.xml"), LoadResText(text::kInvalidResponse)},
      {folder.File(u"broken.xml"), u"Can't read XML (" + folder.File(u"broken.xml") + u")"},
      {folder.File(u"none.xml"), u"Can't read XML (" + folder.File(u"none.xml") + u")"},
  };
  for (const auto& each : cases) {
    Options options(doors);
    Load(options, {u"A --> Name"});
    app->AnswerInstead = each.answer;
    desktop.OnMessage([&](const Message& message) {
      EXPECT_TRUE(message.Body.starts_with(each.message)) << ToUtf8(message.Body);
      EXPECT_EQ(message.Icon, Icon::kStop);
      return Answer::kOk;
    });
    EXPECT_FALSE(options.RefreshDoorsAttributes(app->Module, true));
    EXPECT_EQ(RulesOf(options), Lines({u"A --> Name"}));
  }
}

TEST_F(OptionsTest, RefreshConnectsToDoorsAndStopsWhenTheUserGivesUp) {
  desktop.WindowAt(1).ClassName = u"Other";
  desktop.OnForm<frmConnectProgress>([](frmConnectProgress& form) { form.cmdCancel.Press(); });
  Options options(doors);
  options.LoadDefault(package);
  EXPECT_FALSE(options.RefreshDoorsAttributes(app->Module));
  EXPECT_TRUE(app->Parameters.empty());
}

TEST_F(OptionsTest, AnImportThatFindsNoNewAttributeChangesNoRecord) {
  app->Attributes = {u"x [y]", u"A --> B", u" blank", u"OrimNameAttr=1", u"Status", u"Object Text"};
  Options first(doors);
  first.LoadDefault(package);
  ASSERT_TRUE(first.RefreshDoorsAttributes(app->Module));
  first.Save();
  const int writes = model.Writes;
  for (int import = 0; import < 3; ++import) {
    Options options(doors);
    ASSERT_TRUE(options.Load(package));
    ASSERT_TRUE(options.RefreshDoorsAttributes(app->Module));
    options.Save();
  }
  EXPECT_EQ(model.Writes, writes);
  EXPECT_EQ(Stored(), Record({u"Object Text --> Notes", u"Status", u"x [y]"}));
}

}  // namespace
}  // namespace kestrune::testing
