#include "doors/frmConnectProgress.h"
#include "options/frmMapWizard.h"
#include "options/frmOptions.h"
#include "tests/options/OptionsTest.h"

namespace kestrune::testing {
namespace {

/// The rows as a person reads them.
Lines RowsOf(const frmOptions& form) {
  Lines rows;
  for (const auto& row : form.lvMappings.Rows()) rows.push_back(row.Cells[0] + u" | " + row.Cells[1]);
  return rows;
}

Lines SelectedOf(const frmOptions& form) {
  Lines rows;
  for (const std::size_t row : form.lvMappings.SelectedRows())
    rows.push_back(form.lvMappings.Rows()[row].Cells[0]);
  return rows;
}

/// Map, Combine and Remove as letters, where they are enabled.
std::string EnabledOf(const frmOptions& form) {
  std::string letters;
  if (form.cmdMap.Enabled()) letters += 'M';
  if (form.cmdCombine.Enabled()) letters += 'C';
  if (form.cmdRemove.Enabled()) letters += 'R';
  return letters;
}

class OptionsFormTest : public OptionsTest {
 protected:
  /// Opens the dialog on a package with these rules; the user does this and closes it.
  frmOptions::CloseCode Edit(const Lines& rules, std::function<void(frmOptions&)> user) {
    StoreRecord(Record(rules));
    return Reopen(std::move(user));
  }
  frmOptions::CloseCode Reopen(std::function<void(frmOptions&)> user) {
    desktop.OnForm<frmOptions>(std::move(user));
    return frmOptions(doors).ShowOptions(repository, package);
  }
  static void Choose(frmOptions& form, MenuItem& item) {
    form.cmdMappings.Press();
    form.mnuMappings.Choose(item);
  }
};

TEST_F(OptionsFormTest, ShowsWhatIsStored) {
  Edit({u"A", u"B [: C] --> Name"}, [&](frmOptions& form) {
    EXPECT_EQ(form.lvMappings.Columns(), Lines({u"DOORS", u"Orim Studio"}));
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B [: C] | Name"}));
    EXPECT_EQ(SelectedOf(form), Lines({u"A"}));
    for (const Control* control : form.Controls()) {
      const bool has_caption = control != &form.cmbViews && control != &form.lvMappings;
      EXPECT_EQ(!control->Caption().empty(), has_caption) << ToUtf8(control->Name());
    }
    form.cmdHelp.Press();
    form.cmdCancel.Press();
  });
  EXPECT_EQ(desktop.HelpShown(), std::vector<int>({3400}));
}

TEST_F(OptionsFormTest, TellsWhatModuleThePackageIsLinkedTo) {
  for (const bool is_linked : {true, false}) {
    SaveLinkFile(platform, Guid(), u"");
    if (!is_linked) RemoveFile(GetLinkFilePath(platform, Guid()));
    Edit({u"A"}, [&](frmOptions& form) {
      EXPECT_EQ(form.lblModulePath.Caption(), is_linked ? u"Module Path not set" : u"No Connection");
      form.CloseByUser();
    });
  }
}

TEST_F(OptionsFormTest, EnablesWhatTheSelectionAllows) {
  const Lines four = {u"A", u"B", u"C --> Name", u"D --> Notes"};
  struct {
    Lines rules;
    std::vector<std::size_t> selected;
    const char* enabled;
  } const cases[] = {
      {four, {0}, "MC"},  {four, {0, 1}, "MC"},
      {four, {2}, "R"},   {four, {2, 3}, "R"},
      {four, {0, 2}, ""}, {four, {}, ""},
      {{}, {}, ""},       {{u"A", u"B --> Name"}, {0}, "M"},  // nothing is left to combine A with
  };
  for (const auto& each : cases) {
    Edit(each.rules, [&](frmOptions& form) {
      form.lvMappings.SelectRows(each.selected);
      EXPECT_EQ(EnabledOf(form), each.enabled);
      form.cmdCancel.Press();
    });
  }
}

TEST_F(OptionsFormTest, MapsOfSeveralRowsThoseThatCanBe) {
  Edit({u"A", u"B", u"Object Identifier", u"x [y z]"}, [&](frmOptions& form) {
    desktop.OnForm<frmMapWizard>([](frmMapWizard& wizard) { wizard.cmdNext.Press(); });
    desktop.OnMessage(
        u"These attributes were not mapped, since a mapping rule cannot tell their names from its own "
        u"signs:\r\nx [y z]");
    form.lvMappings.SelectRows({0, 1, 2, 3});
    form.cmdMap.Press();
    EXPECT_EQ(RowsOf(form),
              Lines({u"A | (Tagged Value)", u"B | (Tagged Value)", u"Object Identifier | ", u"x [y z] | "}))
        << "an identifier is a tagged value anyway";
    EXPECT_EQ(SelectedOf(form), Lines({u"A", u"B"}));
    form.cmdCancel.Press();
  });
}

TEST_F(OptionsFormTest, ASecondAttributeThatNoRuleCanHoldGoesBackToItsPage) {
  app->attributes = {u"A", u"B --> C"};
  Edit({u"A"}, [&](frmOptions& form) {
    form.cmdReloadAttribs.Press();
    desktop.OnForm<frmMapWizard>([](frmMapWizard& wizard) {
      for (int page = 1; page <= 3; ++page) wizard.cmdNext.Press();
    });
    desktop.OnMessage(FormatResText(text::kUnmappable, {u"B --> C"}));
    desktop.OnForm<frmMapWizard>([](frmMapWizard& wizard) {
      EXPECT_TRUE(wizard.lstExtra.Visible());
      wizard.CloseByUser();
    });
    form.cmdCombine.Press();
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B --> C | "}));
    form.cmdCancel.Press();
  });
}

TEST_F(OptionsFormTest, ANameWithABracketCannotBeginACombinationAndMayEndOne) {
  Edit({u"A", u"Mass [kg]"}, [&](frmOptions& form) {
    desktop.OnMessage(
        u"The attribute \"Mass [kg]\" cannot be the first of a combination, since its name holds \"[\", by "
        u"which "
        u"the second one is known. Start with the other attribute and combine it with this one.");
    form.lvMappings.SelectRows({1});
    form.cmdCombine.Press();
    desktop.OnForm<frmMapWizard>([](frmMapWizard& wizard) {
      for (int page = 1; page <= 3; ++page) wizard.cmdNext.Press();
    });
    form.lvMappings.SelectRows({0, 1});
    form.cmdCombine.Press();
    EXPECT_EQ(RowsOf(form), Lines({u"A [ Mass [kg]] | (Tagged Value)"}));
    EXPECT_EQ(form.lvMappings.VisibleRow(), 0u);
    form.cmdCancel.Press();
  });
}

TEST_F(OptionsFormTest, TheKeysOfTheListSelectAllAndRemove) {
  Edit({u"A --> Name", u"B", u"C --> Notes"}, [&](frmOptions& form) {
    form.lvMappings.SelectAll();
    EXPECT_EQ(SelectedOf(form), Lines({u"A", u"B", u"C"}));
    form.lvMappings.PressDelete();
    EXPECT_EQ(RowsOf(form), Lines({u"A | Name", u"B | ", u"C | Notes"}))
        << "as the button, which is disabled";
    form.lvMappings.SelectRows({0, 2});
    form.lvMappings.PressDelete();
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B | ", u"C | "}));
    form.cmdCancel.Press();
  });
}

TEST_F(OptionsFormTest, NamesTheRulesThatARefreshDrops) {
  app->attributes = {u"B", u"C"};
  Edit({u"A --> Name", u"B [: D] --> Alias", u"C --> Notes"}, [&](frmOptions& form) {
    desktop.OnMessage(
        u"Rules have lost an attribute:\r\n\r\n"
        u"The module has no attribute \"A\" any more: the rule \"A --> Name\" was dropped.\r\n\r\n"
        u"The module has no attribute \"D\" any more: the rule \"B [: D] --> Alias\" imports \"B\" alone.");
    form.cmdReloadAttribs.Press();
    form.cmdCancel.Press();
  });
}

TEST_F(OptionsFormTest, SaysWhyAnAttributeOfAPeculiarNameCannotBeMapped) {
  app->attributes = {u"A --> B", u"Mass [kg]", u"x [y z]", u"y", u"z"};
  Edit({u"Mass [kg]", u"x [y z]", u"y --> Name", u"z"}, [&](frmOptions& form) {
    form.cmdReloadAttribs.Press();
    ASSERT_EQ(RowsOf(form), Lines({u"A --> B | ", u"Mass [kg] | ", u"x [y z] | ", u"y | Name", u"z | "}));
    for (const std::size_t row : {0u, 2u}) {
      form.lvMappings.SelectRows({row});
      desktop.OnMessage([&](const Message& message) {
        EXPECT_NE(message.Body.find(form.lvMappings.Rows()[row].Cells[0]), Text::npos);
        return Answer::kOk;
      });
      form.cmdMap.Press();
    }
    form.cmdOK.Press();
  });
  EXPECT_EQ(StoredRecord(), Record({u"Mass [kg]", u"x [y z]", u"y --> Name", u"z"}));
}

TEST_F(OptionsFormTest, PastesWhatIsATemplateAndRefusesAMalformedOne) {
  const Text header = u"Orim Studio Mapping Template\r\n";
  Edit({u"A --> Name", u"B"}, [&](frmOptions& form) {
    desktop.SetClipboardText(header + u"B --> Notes\r\nC [: D --> Alias\r\n");
    desktop.OnMessage([](const Message& message) {
      EXPECT_NE(message.Body.find(u"C [: D --> Alias"), Text::npos);
      return Answer::kOk;
    });
    Choose(form, form.mnuMappingsPaste);
    EXPECT_EQ(RowsOf(form), Lines({u"A | Name", u"B | "}));
    desktop.SetClipboardText(header + u"Not in the module --> Alias\r\n\r\nB --> Notes\r\nB --> Phase\r\n");
    Choose(form, form.mnuMappingsPaste);
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B | Phase", u"Not in the module | Alias"}));
    form.cmdCancel.Press();
  });
}

TEST_F(OptionsFormTest, RestrictsTheImportToAView) {
  app->views = {u"Standard view", u"  Mine ", u"", u"   ", u"mine\r"};
  app->while_running = [&] { EXPECT_TRUE(desktop.WaitCursor()); };
  Edit({u"A"}, [](frmOptions& form) {
    form.cmbViews.Drop();
    EXPECT_EQ(form.cmbViews.Items(), Lines({u"Standard view", u"Mine", u"mine"}));
    EXPECT_EQ(form.cmbViews.Value(), u"Standard view");
    form.cmbViews.Choose(1);
    form.cmdOK.Press();
  });
  EXPECT_EQ(app->parameters, Lines({u"/Demo/Requirements"}));
  app->module = u"/Moved/Requirements";
  Reopen([&](frmOptions& form) {
    EXPECT_EQ(form.cmbViews.Value(), u"Mine");
    desktop.OnMessage(u"Error: Module '/Demo/Requirements' not found.");
    form.cmbViews.Drop();
    EXPECT_EQ(form.cmbViews.Items(), Lines({u"Mine"})) << "an error is no view";
    app->module = u"/Demo/Requirements";
    app->views.clear();
    form.cmbViews.Drop();
    EXPECT_EQ(form.cmbViews.Items(), Lines({u"Standard view"}));
    EXPECT_EQ(form.cmbViews.Value(), u"Mine");
    form.cmbViews.Type(u" Standard view ");
    form.cmdOK.Press();
  });
  EXPECT_EQ(StoredRecord(), Record({u"A"}));
}

TEST_F(OptionsFormTest, SurvivesDoorsBeingClosed) {
  for (const std::uint32_t number : {0x80010108u, 0x800706BEu, 0x800706BAu, 0x80004005u}) {
    Edit({u"A --> Name", u"B"}, [&](frmOptions& form) {
      form.cmdRemove.Press();
      app->failure = AutomationError(number, u"DOORS", u"DOORS is gone");
      for (Event* use : {&form.cmdReloadAttribs.Click, &form.cmbViews.DropDown}) {
        desktop.OnMessage([&](const Message& message) {
          EXPECT_EQ(message.Body,
                    number == 0x80004005 ? u"DOORS is gone" : FormatResText(text::kDoorsFailure));
          EXPECT_FALSE(desktop.WaitCursor());
          return Answer::kOk;
        });
        (*use)();
      }
      EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B | "}));
      form.cmdOK.Press();
    });
    EXPECT_EQ(StoredRecord(), Record({u"A", u"B"}));
    app->failure.reset();
  }
}

TEST_F(OptionsFormTest, WaitsForDoorsUntilTheUserGivesUp) {
  desktop.WindowAt(1).class_name = u"Other";
  Edit({u"A --> Name"}, [&](frmOptions& form) {
    for (Event* use : {&form.cmdReloadAttribs.Click, &form.cmbViews.DropDown}) {
      desktop.OnForm<frmConnectProgress>([&](frmConnectProgress& progress) {
        EXPECT_FALSE(desktop.WaitCursor()) << "it is the user who is waited for";
        progress.cmdCancel.Press();
      });
      (*use)();
    }
    EXPECT_FALSE(desktop.WaitCursor());
    EXPECT_EQ(RowsOf(form), Lines({u"A | Name"}));
    form.cmdCancel.Press();
  });
  EXPECT_TRUE(app->parameters.empty());
}

TEST_F(OptionsFormTest, EditsTheDefaultsOfAPackageWhoseRecordHasGone) {
  EXPECT_EQ(Reopen([](frmOptions& form) { form.cmdSaveAndImport.Press(); }), frmOptions::kSaveAndImport);
  Options options(doors);
  EXPECT_TRUE(options.Load(package));
  EXPECT_EQ(RulesOf(options).size(), 5u);
}

}  // namespace
}  // namespace kestrune::testing
