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
  EXPECT_EQ(package.Element().TaggedValues().GetAt(0).Value(), u"<memo>");
  Options again(doors);
  ASSERT_TRUE(again.Load(package));
  EXPECT_EQ(again.RestrictToView, u"My view");
  EXPECT_EQ(RulesOf(again), Lines({u"A [: C] --> Notes", u"B", u"b --> Name"}));
  again.Save();
  EXPECT_EQ(model.Counters().Writes(), 1);
  again.RestrictToView = u"Standard view";
  again.Save();
  EXPECT_EQ(StoredRecord(), Record({u"A [: C] --> Notes", u"B", u"b --> Name"}));
  ASSERT_TRUE(options.Load(package));
  EXPECT_EQ(options.RestrictToView, u"");
}

TEST_F(OptionsTest, AFailingHostLeavesTheRecordAsItWas) {
  using Moment = standins::HostFaults::Moment;
  for (const Moment moment : {Moment::kPut, Moment::kSave}) {
    Options options(doors);
    Load(options, {u"A"});
    options.AddMapping(u"A --> Name");
    model.Faults().FailTaggedValue(u"DoorsConnection", moment, AutomationError(1, u"Host", u"Failed"));
    EXPECT_THROW(options.Save(), AutomationError);
    EXPECT_EQ(StoredRecord(), Record({u"A"}));
    model.Faults().Clear();
  }
}

TEST_F(OptionsTest, InvalidRecordGivesTheDefaultsAndItsOwnRules) {
  const Text start = u"1\r\n2\r\n\r\nRestrictToView=V\r\n\r\nObject Text --> Alias\r\n";
  for (const Text& record : {start + u"OrimNameAttr=x\r\nStatus", Text(u"A --> Name\r\nB\r\nC")}) {
    const bool is_too_short = !record.starts_with(start);
    StoreRecord(record);
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
  StoreRecord(Record({u"A --> Name", u"B [C --> Notes", u"D [: E --> Alias", u"F"}));
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
  const auto tagged_values = package.Element().TaggedValues();
  for (const Text name : {u"Author", u"DoorsConnection", u"Zone"}) tagged_values.AddNew(name, u"1").Save();
  model.Counters().Reset();
  Options options(doors);
  for (int i = 0; i < 2; ++i) options.Clear(package);
  EXPECT_EQ(StoredRecord(), u"no record");
  EXPECT_EQ(package.Element().TaggedValues().Count(), 2);
  EXPECT_EQ(model.Counters().Writes(), 1);
}

TEST_F(OptionsTest, AnImportLooksAtTheRecordOnce) {
  StoreRecord(Record({u"A --> Name"}));
  Options options(doors);
  EXPECT_TRUE(options.EnsureOK(package, app->module, OptionsDialog(doors)));
  EXPECT_EQ(RulesOf(options), Lines({u"A --> Name"}));
  options.Save();
  EXPECT_EQ(model.Counters().ByMember().at(u"Get Element.TaggedValues"), 1);
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
    StoreRecord(each.record);
    if (!each.record.empty()) desktop.OnMessage(LoadResText(text::kInvalidRecord));
    desktop.OnForm<frmOptions>([&](frmOptions& form) { (form.*each.close).Press(); });
    Options options(doors);
    EXPECT_EQ(options.EnsureOK(package, each.module_path, OptionsDialog(doors)), each.ok);
    EXPECT_EQ(RulesOf(options), Lines({u"Object Text --> Notes", u"Status"}));
    EXPECT_EQ(options.RestrictToView, u"") << "the standard view is none";
    EXPECT_EQ(app->parameters.back(), u"/Demo/Requirements~1~~");
    EXPECT_EQ(StoredRecord(), Record({u"Object Text --> Notes", u"Status"}));
  }
}

TEST_F(OptionsTest, ALockedPackageWithoutARecordIsRefusedBeforeDoorsIsAsked) {
  SetLocked(true);
  desktop.OnMessage(u"Package locked. Cannot proceed with operation.");
  EXPECT_FALSE(Options(doors).EnsureOK(package, u"", OptionsDialog(doors)));
  EXPECT_TRUE(app->scripts.empty());
  EXPECT_EQ(model.Counters().Writes(), 0);
}

TEST_F(OptionsTest, EnsureOkNeedsAModulePathAndAWorkingDoors) {
  app->answer_instead = u"Error: Module '/Demo/Requirements' not found.";
  desktop.OnMessage(*app->answer_instead);
  EXPECT_FALSE(Options(doors).EnsureOK(package, u"", OptionsDialog(doors)));
  RemoveFile(GetLinkFilePath(platform, Guid()));
  desktop.OnMessage([](const Message& message) {
    EXPECT_EQ(message.Body, LoadResText(text::kModulePathNotSet));
    EXPECT_EQ(message.Icon, Icon::kStop);
    return Answer::kOk;
  });
  EXPECT_FALSE(Options(doors).EnsureOK(package, u"", OptionsDialog(doors)));
  EXPECT_EQ(StoredRecord(), u"no record");
}

}  // namespace
}  // namespace kestrune::testing
