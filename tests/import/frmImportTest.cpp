#include "tests/import/ImportTest.h"

namespace kestrune {
namespace {

using testing::ImportFixture;

struct ImportWindowTest : ImportFixture {
  ImportWindowTest() { StoreRules({u"Object Heading --> Name"}); }
};

TEST_F(ImportWindowTest, LeavesNoExportFileAndShowsThePackageAfresh) {
  Import();
  EXPECT_FALSE(IsFile(folder.File(u"DP1")));
  EXPECT_EQ(model.RefreshedPackages(), std::vector<std::int32_t>{package_id});
}

TEST_F(ImportWindowTest, ItsLinesCanBeCopied) {
  frmImport form(doors);
  desktop.OnForm<frmImport>([&](frmImport& opened) {
    desktop.Tick();
    opened.List1.PressCopy();
    EXPECT_EQ(desktop.ClipboardText(), u"*** Import Complete ***\r\n");
    opened.List1.SelectLines({0, 3});
    opened.List1.AskForMenu();
    opened.mnuLines.Choose(opened.mnuLinesCopy);
    EXPECT_EQ(desktop.ClipboardText(), u"Connecting to DOORS\r\nComparing...\r\n");
    opened.List1.AskForMenu();
    opened.mnuLines.Choose(opened.mnuLinesSelectAll);
    opened.List1.PressCopy();
    EXPECT_EQ(Split(desktop.ClipboardText(), kCrLf).size(), opened.List1.Items().size() + 1);
    opened.cmdClose.Press();
  });
  form.Transfer(repository, frmImport::kImport);
}

TEST_F(ImportWindowTest, ALongPhaseShowsHowFarItIs) {
  for (int i = 0; i < 40; ++i) application->objects.push_back({{"a1", ToText(i)}});
  desktop.SetMillisecondsPerLook(40);
  std::string captions;
  frmImport form(doors);
  desktop.OnForm<frmImport>([&](frmImport& opened) {
    struct Watch : Timer {
      using Timer::Timer;
    } watch(&opened, u"watch");
    watch.Tick = [&] { captions += ToUtf8(opened.Caption.substr(Text(u"Import Progress").size())); };
    desktop.Tick();
    EXPECT_EQ(opened.Caption, u"Import Progress");
    opened.cmdClose.Press();
  });
  form.Transfer(repository, frmImport::kImport);
  EXPECT_EQ(captions, " (62 %) (70 %) (77 %) (85 %) (92 %) (62 %) (70 %) (77 %) (85 %) (92 %)");
}

TEST_F(ImportWindowTest, ARuleThatNamesNoFieldEndsTheImportBeforeAnythingIsWritten) {
  for (const Text field : {u"PackageID", u"Colour", u"name"}) {
    StoreRules({u"Mood --> " + field});
    model.Counters().Reset();
    NextMessage(u"Unknown field: " + field + u"\r\n(Error Code: -2147221503)");
    Import();
    EXPECT_EQ(model.Counters().Writes(), 0);
  }
}

TEST_F(ImportWindowTest, RulesThatFillNothingAreNamed) {
  StoreRules({u"Mood --> Alias", u"Object Text --> Alias", u"Object Identifier --> (Tagged Value)",
              u"Gone [: Object Number] --> Status"});
  application->objects = {{{"a1", u"A"}, {"a2", u"1"}, {"a4", u"text"}, {"a12", u"mood"}}};
  const auto lines = Import();
  for (const char16_t* warning :
       {u"Warning: The rule \"Object Text --> Alias\" is not used: \"Mood --> Alias\" fills the same field. "
        u"Remove one of the two in the options.",
        u"Warning: The module has no attribute \"Gone\" any more: the rule \"Gone [: Object Number] --> "
        u"Status\" was dropped."})
    EXPECT_TRUE(HasLine(lines, warning)) << ToUtf8(warning);
  EXPECT_EQ(ElementOf(u"A").Field(u"Alias"), u"mood");
  EXPECT_EQ(ElementOf(u"A").Field(u"Status"), u"");
  EXPECT_EQ(WritesOfAnImport(), 0);
}

TEST_F(ImportWindowTest, AnswersThatAreNoFile) {
  const std::pair<Text, Text> cases[] = {
      {u"", u"Invalid response from DOORS"},
      {u"Error: Module '/P/M' not found.", u"Module '/P/M' not found."},
  };
  for (const auto& [answer, description] : cases) {
    application->answer_instead = answer;
    NextMessage(description + u"\r\n(Error Code: -2147221502)");
    EXPECT_EQ(Import().back(), u"Checking contents of DOORS module");
  }
  EXPECT_EQ(Tree(), "");
}

TEST_F(ImportWindowTest, ARuleThatCannotBeReadEndsTheImportAndStaysInTheRecord) {
  const auto record = Package().Element().TaggedValues().Find(u"DoorsConnection");
  const Text damaged = record.Notes() + u"Mood [x --> Notes\r\n";
  record.SetNotes(damaged);
  record.Save();
  application->objects = {{{"a1", u"R1"}}};
  NextMessage(
      u"The mapping rule \"Mood [x --> Notes\" cannot be read. A rule is written as \"Attribute --> Target\" "
      u"or "
      u"as \"Attribute [: Second Attribute] --> Target\".\r\n(Error Code: -2147221497)");
  Import();
  EXPECT_EQ(Tree(), "");
  EXPECT_EQ(record.Notes(), damaged);
}

TEST_F(ImportWindowTest, AMalformedExportCanBeLookedAt) {
  const Text path = folder.File(u"DP1");
  WriteFile(path, "<DoorsModule>");
  application->answer_instead = path;
  frmImport form(doors);
  desktop.OnForm<frmImport>([&](frmImport& opened) {
    desktop.OnMessage([](const Message& message) {
      EXPECT_TRUE(message.Body.starts_with(
          u"Unexpected data encountered during import:\r\n\r\nError Parsing XML Result\r\nFile: "));
      EXPECT_NE(message.Body.find(u"(Error Code: -2147220503)"), Text::npos);
      EXPECT_TRUE(message.Body.ends_with(u"go to https://kestrune.example/support\r\n"));
      EXPECT_EQ(message.Icon, Icon::kStop);
      EXPECT_EQ(message.HelpContext, 6740);
      return Answer::kOk;
    });
    desktop.OnMessage(u"Browse to xml file?", Answer::kYes);
    desktop.Tick();
    opened.CloseByUser();
  });
  form.Transfer(repository, 0);
  EXPECT_TRUE(IsFile(path)) << "the file is kept to be looked at";
  EXPECT_EQ(desktop.Commands(), std::vector<Text>{u"Explorer.exe ,/select ,\"" + path + u"\""});
}

TEST_F(ImportWindowTest, CannotBeClosedWhileTheTransferRuns) {
  frmImport form(doors);
  desktop.OnForm<frmImport>([&](frmImport& opened) {
    application->while_running = [&] {
      opened.CloseByUser();
      EXPECT_TRUE(opened.IsOpen());
      EXPECT_FALSE(opened.cmdClose.Enabled());
      desktop.Tick();  // the timer has done its one tick
    };
    desktop.Tick();
    EXPECT_EQ(application->parameters.size(), 1u);
    opened.CloseByUser();
    EXPECT_FALSE(opened.IsOpen());
  });
  form.Transfer(repository, 0);
}

TEST_F(ImportWindowTest, ClosesByItselfWhereThereIsNothingToTransfer) {
  SaveLinkFile(platform, Guid(), u"");
  NextMessage(u"Module Path not set");
  Import();
  EXPECT_TRUE(application->parameters.empty());
}

TEST_F(ImportWindowTest, ClosesByItselfWhenTheUserGivesUpTheOptionsOrDoors) {
  const auto open_and_give_up = [&](const std::function<void()>& give_up) {
    frmImport form(doors);
    desktop.OnForm<frmImport>([&](frmImport& opened) {
      give_up();
      desktop.Tick();
      EXPECT_FALSE(opened.IsOpen());
    });
    form.Transfer(repository, 0);
  };
  Options(doors).Clear(Package());
  open_and_give_up(
      [&] { desktop.OnForm<frmOptions>([](frmOptions& options) { options.cmdCancel.Press(); }); });
  desktop.WindowAt(1).visible = false;
  open_and_give_up([&] {
    desktop.OnForm<frmConnectProgress>([](frmConnectProgress& progress) { progress.cmdCancel.Press(); });
  });
  EXPECT_EQ(Tree(), "");
}

TEST_F(ImportWindowTest, MinimizesADoorsThatCameToTheFront) {
  const WindowHandle module_window = desktop.AddWindow({u"DOORSModule", 0});
  application->while_running = [&] { desktop.BringToFront(module_window); };
  Import();
  EXPECT_TRUE(desktop.WindowAt(module_window).minimized);
}

TEST_F(ImportWindowTest, CaptionsFollowTheDirectionAndHelpItsTopic) {
  for (const std::int32_t direction : {0, 1, 2}) {
    frmImport form(doors);
    desktop.OnForm<frmImport>([&](frmImport& opened) {
      EXPECT_EQ(opened.Caption, direction == 1 ? u"Export Progress" : u"Import Progress");
      opened.cmdHelp.Press();
      desktop.Tick();
      opened.cmdClose.Press();
    });
    form.Transfer(repository, direction);
  }
  EXPECT_EQ(desktop.HelpShown(), (std::vector<int>{6340, 6340, 6340}));
}

TEST_F(ImportWindowTest, TheExportComparisonNamesWhatTheModuleLacksAndChangesNothing) {
  AddElement(u"Only here", {{u"Object Identifier", u"R9"}});
  AddElement(u"In both", {{u"Object Identifier", u"R1"}});
  application->objects = {{{"a1", u"R2"}}, {{"a1", u"R1"}, {"a9", u"renamed"}}};
  model.Counters().Reset();
  const auto lines = Import(1);
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[4], u"Only here: New");
  EXPECT_EQ(lines[5], u"*** Import Complete ***");
  EXPECT_EQ(model.Counters().Writes(), 0);
}

}  // namespace
}  // namespace kestrune
