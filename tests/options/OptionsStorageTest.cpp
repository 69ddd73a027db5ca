#include "options/frmOptions.h"
#include "tests/options/OptionsTest.h"

namespace kestrune::testing {
namespace {

TEST_F(OptionsTest, LoadsWhatWasSaved) {
  Options options(doors);
  Load(options, {u"b --> Name", u"A [: C] --> Notes", u"B"});
  options.RestrictToView = u"My view";
  options.Save();
  Options again(doors);
  ASSERT_TRUE(again.Load(package));
  EXPECT_EQ(again.RestrictToView, u"My view");
  EXPECT_EQ(RulesOf(again), Lines({u"A [: C] --> Notes", u"B", u"b --> Name"}));
  again.RestrictToView = u"Standard view";
  again.Save();
  EXPECT_EQ(Stored(), Record({u"A [: C] --> Notes", u"B", u"b --> Name"}));
  ASSERT_TRUE(options.Load(package));
  EXPECT_EQ(options.RestrictToView, u"");
}

TEST_F(OptionsTest, SaveMakesTheRecordOnceAndLeavesAnUnchangedOneAlone) {
  Options options(doors);
  options.LoadDefault(package);
  options.Save();
  ASSERT_EQ(model.Tags.size(), 1u);
  EXPECT_EQ(model.Tags[0]->Value, u"<memo>");
  EXPECT_EQ(model.Writes, 1);
  options.Save();
  EXPECT_EQ(model.Writes, 1);
  options.AddMapping(u"Status --> Status");
  options.Save();
  EXPECT_EQ(model.Writes, 2);
  EXPECT_EQ(model.Tags.size(), 1u);
}

TEST_F(OptionsTest, AFailingHostLeavesTheRecordAsItWas) {
  for (const TextView failing : {u"TaggedValues", u"Save", u"Notes"}) {
    Options options(doors);
    Load(options, {u"A"});
    options.AddMapping(u"A --> Name");
    model.FailingCall = failing;
    EXPECT_THROW(options.Save(), AutomationError) << ToUtf8(failing);
    EXPECT_EQ(Stored(), Record({u"A"}));
    model.FailingCall.clear();
  }
}

TEST_F(OptionsTest, LeavesOutWhatTheRecordCannotHold) {
  Options options(doors);
  Load(options, {u"Z --> Name"});
  for (const TextView name : {u"A --> B", u"OrimNameAttr=x", u"RestrictToView=y", u"x [y]", u" blank "})
    options.Rules.push_back({Text(name)});
  options.Save();
  EXPECT_EQ(Stored(), Record({u"Z --> Name", u"x [y]"}));
  ASSERT_TRUE(options.Load(package));
  EXPECT_EQ(RulesOf(options), Lines({u"Z --> Name", u"x [y]"}));
}

TEST_F(OptionsTest, PackageWithoutARecordLoadsNothing) {
  Options options(doors);
  EXPECT_FALSE(options.Load(package));
  EXPECT_EQ(options.Rules.size(), 1u);
}

TEST_F(OptionsTest, RecordOfNoRulesHasTheFixedOnes) {
  Options options(doors);
  Load(options, {});
  EXPECT_EQ(options.Rules.size(), 5u);
}

TEST_F(OptionsTest, InvalidRecordGivesTheDefaultsAndItsOwnRules) {
  Store(u"1\r\n2\r\n\r\nRestrictToView=V\r\n\r\nObject Text --> Alias\r\nOrimNameAttr=x\r\nStatus");
  desktop.OnMessage([](const Message& message) {
    EXPECT_EQ(message.Body, LoadResText(text::kInvalidRecord));
    EXPECT_EQ(message.Title, u"Kestrune Link");
    EXPECT_EQ(message.Icon, Icon::kExclamation);
    return Answer::kOk;
  });
  Options options(doors);
  EXPECT_TRUE(options.Load(package));
  EXPECT_EQ(options.RestrictToView, u"V");
  EXPECT_EQ(RuleText(options.GetRule(u"Object Text")), u"Object Text --> Alias");
  EXPECT_EQ(RuleText(options.GetRule(u"Object Heading")), u"Object Number [: Object Heading] --> Name");
  EXPECT_NE(options.FindAttribute(u"Status"), 0u);
}

TEST_F(OptionsTest, RecordThatIsTooShortGivesTheDefaultsOnly) {
  Store(u"A --> Name\r\nB\r\nC");
  desktop.OnMessage(LoadResText(text::kInvalidRecord));
  Options options(doors);
  EXPECT_TRUE(options.Load(package));
  EXPECT_EQ(RulesOf(options).size(), 5u);
  EXPECT_EQ(options.FindAttribute(u"A"), 0u);
}

TEST_F(OptionsTest, MalformedLineIsNamedAndCostsNoOtherRule) {
  Store(Record({u"A --> Name", u"B [C] --> Notes", u"D [:E] --> Alias", u"F"}));
  desktop.OnMessage([](const Message& message) {
    EXPECT_NE(message.Body.find(u"B [C] --> Notes"), Text::npos);
    EXPECT_NE(message.Body.find(u"D [:E] --> Alias"), Text::npos);
    return Answer::kOk;
  });
  Options options(doors);
  EXPECT_TRUE(options.Load(package));
  EXPECT_EQ(RulesOf(options), Lines({u"A --> Name", u"F"}));
}

TEST_F(OptionsTest, ClearDeletesTheRecordAndNothingElse) {
  for (const TextView name : {u"Author", u"DoorsConnection", u"Zone"})
    model.Tags.push_back(std::make_shared<PackageModel::Tag>(Text(name), u"1", u""));
  Options options(doors);
  options.Clear(package);
  EXPECT_EQ(model.Find(u"DoorsConnection"), nullptr);
  EXPECT_EQ(model.Tags.size(), 2u);
  options.Clear(package);
  EXPECT_EQ(model.Writes, 1);
}

TEST_F(OptionsTest, EnsureOkIsContentWithAValidRecord) {
  Store(Record({u"A"}));
  EXPECT_TRUE(Options(doors).EnsureOK(repository, package, u""));
  EXPECT_EQ(model.Writes, 0);
  EXPECT_TRUE(app->Parameters.empty());
}

TEST_F(OptionsTest, EnsureOkMakesARecordForTheUserToLookAt) {
  struct {
    Text record, module_path;
    void (*close)(frmOptions&);
    bool ok;
  } const cases[] = {
      {u"", u"", [](frmOptions& form) { form.cmdOK.Press(); }, true},
      {u"", u"/Demo/Requirements", [](frmOptions& form) { form.cmdSaveAndImport.Press(); }, true},
      {u"too short", u"", [](frmOptions& form) { form.cmdCancel.Press(); }, false},
  };
  app->Attributes = {u"Object Text", u"Status"};
  for (const auto& each : cases) {
    model.Tags.clear();
    if (!each.record.empty()) {
      Store(each.record);
      desktop.OnMessage(LoadResText(text::kInvalidRecord));
    }
    desktop.OnForm<frmOptions>([&](frmOptions& form) { each.close(form); });
    EXPECT_EQ(Options(doors).EnsureOK(repository, package, each.module_path), each.ok);
    EXPECT_EQ(app->Parameters.back(), u"/Demo/Requirements~1~~");
    EXPECT_EQ(Stored(), Record({u"Object Text --> Notes", u"Status"}));
  }
}

TEST_F(OptionsTest, EnsureOkNeedsAModulePathAndAWorkingDoors) {
  app->AnswerInstead = u"Error: Module '/Demo/Requirements' not found.";
  desktop.OnMessage(*app->AnswerInstead);
  EXPECT_FALSE(Options(doors).EnsureOK(repository, package, u""));
  model.Guid = u"{not linked}";
  desktop.OnMessage([](const Message& message) {
    EXPECT_EQ(message.Body, LoadResText(text::kModulePathNotSet));
    EXPECT_EQ(message.Icon, Icon::kStop);
    return Answer::kOk;
  });
  EXPECT_FALSE(Options(doors).EnsureOK(repository, package, u""));
  EXPECT_TRUE(model.Tags.empty());
}

}  // namespace
}  // namespace kestrune::testing
