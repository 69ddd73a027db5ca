#include "tests/options/OptionsTest.h"

#include "options/frmOptions.h"

namespace kestrune::testing {
namespace {

TEST_F(OptionsTest, LoadsWhatWasSavedAndWritesOnlyWhatHasChanged) {
  Options options(doors);
  options.LoadDefault(package);
  options.Rules.resize(Options::kFirstUserSlot);
  for (const TextView rule : {u"b --> Name", u"A [: C] --> Notes", u"B"}) options.AddMapping(rule);
  options.RestrictToView = u"My view";
  options.Save();
  EXPECT_EQ(model.Find(u"DoorsConnection")->value, u"<memo>");
  Options again(doors);
  ASSERT_TRUE(again.Load(package));
  EXPECT_EQ(again.RestrictToView, u"My view");
  EXPECT_EQ(RulesOf(again), Lines({u"A [: C] --> Notes", u"B", u"b --> Name"}));
  again.Save();
  EXPECT_EQ(model.writes, 1);
  again.RestrictToView = u"Standard view";
  again.Save();
  EXPECT_EQ(Stored(), Record({u"A [: C] --> Notes", u"B", u"b --> Name"}));
  ASSERT_TRUE(options.Load(package));
  EXPECT_EQ(options.RestrictToView, u"");
}

TEST_F(OptionsTest, AFailingHostLeavesTheRecordAsItWas) {
  for (const TextView failing : {u"TaggedValues", u"Save", u"Notes"}) {
    Options options(doors);
    Load(options, {u"A"});
    options.AddMapping(u"A --> Name");
    model.failing_call = failing;
    EXPECT_THROW(options.Save(), AutomationError) << ToUtf8(failing);
    EXPECT_EQ(Stored(), Record({u"A"}));
    model.failing_call.clear();
  }
}

TEST_F(OptionsTest, InvalidRecordGivesTheDefaultsAndItsOwnRules) {
  const Text start = u"1\r\n2\r\n\r\nRestrictToView=V\r\n\r\nObject Text --> Alias\r\n";
  for (const Text& record : {start + u"OrimNameAttr=x\r\nStatus", Text(u"A --> Name\r\nB\r\nC")}) {
    const bool is_too_short = !record.starts_with(start);
    model.tags.clear();
    Store(record);
    desktop.OnMessage([](const Message& message) {
      EXPECT_EQ(message.Body, LoadResText(text::kInvalidRecord));
      EXPECT_EQ(message.Title, u"Kestrune Link");
      EXPECT_EQ(message.Icon, Icon::kExclamation);
      return Answer::kOk;
    });
    Options options(doors);
    EXPECT_TRUE(options.Load(package));
    EXPECT_EQ(options.RestrictToView, is_too_short ? u"" : u"V");
    EXPECT_EQ(RuleText(options.GetRule(u"Object Text")),
              is_too_short ? u"Object Text --> Notes" : u"Object Text --> Alias");
    EXPECT_EQ(RuleText(options.GetRule(u"Object Heading")), u"Object Number [: Object Heading] --> Name");
    EXPECT_EQ(options.FindAttribute(u"Status") == 0, is_too_short);
    EXPECT_EQ(options.FindAttribute(u"A"), 0u);
  }
}

TEST_F(OptionsTest, MalformedLineIsNamedAndCostsNoOtherRule) {
  Store(Record({u"A --> Name", u"B [C --> Notes", u"D [: E --> Alias", u"F"}));
  Options options(doors);
  EXPECT_TRUE(options.Load(package));
  EXPECT_EQ(RulesOf(options), Lines({u"A --> Name", u"F"}));
  const Lines complaints = Split(options.Complaints, kCrLf);
  ASSERT_EQ(complaints.size(), 2u);
  EXPECT_NE(complaints[0].find(u"B [C --> Notes"), Text::npos);
  EXPECT_NE(complaints[1].find(u"D [: E --> Alias"), Text::npos);
  desktop.OnMessage(
      options.Complaints +
      u"\r\n\r\nOK writes the options without the line(s) named above. To keep them, press Cancel and "
      u"mend them in the notes of the package's tagged value \"DoorsConnection\".");
  desktop.OnForm<frmOptions>([](frmOptions& form) { form.CloseByUser(); });
  frmOptions(doors).ShowOptions(repository, package);
}

TEST_F(OptionsTest, ClearDeletesTheRecordAndNothingElse) {
  for (const TextView name : {u"Author", u"DoorsConnection", u"Zone"})
    model.tags.push_back(std::make_shared<PackageModel::Tag>(Text(name), u"1", u""));
  Options options(doors);
  for (int i = 0; i < 2; ++i) options.Clear(package);
  EXPECT_EQ(model.Find(u"DoorsConnection"), nullptr);
  EXPECT_EQ(model.tags.size(), 2u);
  EXPECT_EQ(model.writes, 1);
}

TEST_F(OptionsTest, AnImportLooksAtTheRecordOnce) {
  Store(Record({u"A --> Name"}));
  Options options(doors);
  EXPECT_TRUE(options.EnsureOK(package, app->module, OptionsDialog(doors)));
  EXPECT_EQ(RulesOf(options), Lines({u"A --> Name"}));
  options.Save();
  EXPECT_EQ(model.looks, 1);
}

TEST_F(OptionsTest, EnsureOkMakesARecordForTheUserToLookAt) {
  struct {
    Text record, module_path;
    Button frmOptions::*close;
    bool ok;
  } const cases[] = {
      {u"", u"", &frmOptions::cmdOK, true},
      {u"", u"/Demo/Requirements", &frmOptions::cmdSaveAndImport, true},
      {u"too short", u"", &frmOptions::cmdCancel, false},
  };
  app->attributes = {u"Object Text", u"Status"};
  for (const auto& each : cases) {
    model.tags.clear();
    if (!each.record.empty()) {
      Store(each.record);
      desktop.OnMessage(LoadResText(text::kInvalidRecord));
    }
    desktop.OnForm<frmOptions>([&](frmOptions& form) { (form.*each.close).Press(); });
    Options options(doors);
    EXPECT_EQ(options.EnsureOK(package, each.module_path, OptionsDialog(doors)), each.ok);
    EXPECT_EQ(RulesOf(options), Lines({u"Object Text --> Notes", u"Status"}));
    EXPECT_EQ(options.RestrictToView, u"") << "the standard view is none";
    EXPECT_EQ(app->parameters.back(), u"/Demo/Requirements~1~~");
    EXPECT_EQ(Stored(), Record({u"Object Text --> Notes", u"Status"}));
  }
}

TEST_F(OptionsTest, ALockedPackageWithoutARecordIsRefusedBeforeDoorsIsAsked) {
  model.locked = true;
  desktop.OnMessage(u"Package locked. Cannot proceed with operation.");
  EXPECT_FALSE(Options(doors).EnsureOK(package, u"", OptionsDialog(doors)));
  EXPECT_TRUE(app->scripts.empty());
  EXPECT_EQ(model.writes, 0);
}

TEST_F(OptionsTest, EnsureOkNeedsAModulePathAndAWorkingDoors) {
  app->answer_instead = u"Error: Module '/Demo/Requirements' not found.";
  desktop.OnMessage(*app->answer_instead);
  EXPECT_FALSE(Options(doors).EnsureOK(package, u"", OptionsDialog(doors)));
  model.guid = u"{not linked}";
  desktop.OnMessage([](const Message& message) {
    EXPECT_EQ(message.Body, LoadResText(text::kModulePathNotSet));
    EXPECT_EQ(message.Icon, Icon::kStop);
    return Answer::kOk;
  });
  EXPECT_FALSE(Options(doors).EnsureOK(package, u"", OptionsDialog(doors)));
  EXPECT_TRUE(model.tags.empty());
}

}  // namespace
}  // namespace kestrune::testing
