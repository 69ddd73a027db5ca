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
    model.Tags.clear();
    Store(Record(rules));
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
    EXPECT_EQ(form.Caption, u"Options");
    EXPECT_EQ(form.lblPackageName.Caption(), u"Requirements");
    EXPECT_EQ(form.lblModulePath.Caption(), u"/Demo/Requirements");
    EXPECT_EQ(form.lvMappings.Columns(), Lines({u"DOORS", u"Orim Studio"}));
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B [: C] | Name"}));
    EXPECT_EQ(SelectedOf(form), Lines({u"A"}));
    EXPECT_EQ(form.cmbViews.Items(), Lines({u"Standard view"}));
    EXPECT_EQ(form.cmbViews.Value(), u"Standard view");
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
  const auto path_is = [](const char16_t* expected) {
    return [expected](frmOptions& form) {
      EXPECT_EQ(form.lblModulePath.Caption(), expected);
      form.CloseByUser();
    };
  };
  SaveLinkFile(platform, model.Guid, u"");
  Edit({u"A"}, path_is(u"Module Path not set"));
  model.Guid = u"{not linked}";
  EXPECT_EQ(Edit({u"A"}, path_is(u"No Connection")), frmOptions::kCancelled);
}

TEST_F(OptionsFormTest, EnablesWhatTheSelectionAllows) {
  struct {
    Lines rules;
    std::vector<std::size_t> selected;
    const char* enabled;
  } const cases[] = {
      {{u"A", u"B", u"C --> Name", u"D --> Notes"}, {0}, "MC"},
      {{u"A", u"B", u"C --> Name", u"D --> Notes"}, {0, 1}, "MC"},
      {{u"A", u"B", u"C --> Name", u"D --> Notes"}, {2}, "R"},
      {{u"A", u"B", u"C --> Name", u"D --> Notes"}, {2, 3}, "R"},
      {{u"A", u"B", u"C --> Name", u"D --> Notes"}, {0, 2}, ""},
      {{u"A", u"B", u"C --> Name", u"D --> Notes"}, {}, ""},
      {{u"A", u"B --> Name"}, {0}, "M"},  // nothing is left to combine A with
      {{}, {}, ""},
  };
  for (const auto& each : cases) {
    Edit(each.rules, [&](frmOptions& form) {
      form.lvMappings.SelectRows(each.selected);
      EXPECT_EQ(EnabledOf(form), each.enabled);
      EXPECT_TRUE(form.cmdOK.Enabled() && form.cmdMappings.Enabled() && form.cmdReloadAttribs.Enabled());
      form.cmdCancel.Press();
    });
  }
}

TEST_F(OptionsFormTest, MapsTheAttributeThatTheUserDoubleClicks) {
  desktop.OnForm<frmOptions>([](frmOptions& form) {
    form.lvMappings.DoubleClickRow(1);
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B | Name", u"C | "}));
    EXPECT_EQ(SelectedOf(form), Lines({u"B"}));
    EXPECT_EQ(form.lvMappings.VisibleRow(), 1u);
    EXPECT_EQ(EnabledOf(form), "R");
    form.lvMappings.DoubleClickRow(1);  // a mapped one opens no wizard
    form.cmdOK.Press();
  });
  desktop.OnForm<frmMapWizard>([](frmMapWizard& wizard) { wizard.lstTarget.DoubleClickItem(1); });
  Store(Record({u"A", u"B", u"C"}));
  EXPECT_EQ(frmOptions(doors).ShowOptions(repository, package), frmOptions::kAccepted);
  EXPECT_EQ(Stored(), Record({u"A", u"B --> Name", u"C"}));
}

TEST_F(OptionsFormTest, CombinesTwoAndTakesThemApartAgain) {
  desktop.OnForm<frmOptions>([](frmOptions& form) {
    form.lvMappings.SelectRows({1});
    form.cmdCombine.Press();
    EXPECT_EQ(RowsOf(form), Lines({u"B [: A] | (Tagged Value)", u"C | "}));
    EXPECT_EQ(SelectedOf(form), Lines({u"B [: A]"}));
    form.cmdRemove.Press();
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B | ", u"C | "}));
    EXPECT_EQ(SelectedOf(form), Lines({u"B"}));
    EXPECT_EQ(EnabledOf(form), "MC");
    form.cmdOK.Press();
  });
  desktop.OnForm<frmMapWizard>([](frmMapWizard& wizard) {
    wizard.cmdNext.Press();
    wizard.txtSep.Type(u":");
    wizard.cmdNext.Press();
    wizard.cmdNext.Press();
  });
  Store(Record({u"A", u"B", u"C"}));
  frmOptions(doors).ShowOptions(repository, package);
  EXPECT_EQ(model.Writes, 0);
}

TEST_F(OptionsFormTest, CancellingTheWizardChangesNothing) {
  desktop.OnForm<frmOptions>([](frmOptions& form) {
    form.lvMappings.SelectRows({1});
    form.cmdMap.Press();
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B | "}));
    EXPECT_EQ(SelectedOf(form), Lines({u"B"}));
    form.cmdCancel.Press();
  });
  desktop.OnForm<frmMapWizard>([](frmMapWizard& wizard) { wizard.CloseByUser(); });
  Store(Record({u"A", u"B"}));
  frmOptions(doors).ShowOptions(repository, package);
}

TEST_F(OptionsFormTest, RemovesAllSelectedMappings) {
  Edit({u"A --> Name", u"B [: C] --> Notes", u"D --> Alias"}, [](frmOptions& form) {
    form.lvMappings.SelectRows({0, 1});
    form.cmdRemove.Press();
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B | ", u"C | ", u"D | Alias"}));
    EXPECT_EQ(SelectedOf(form), Lines({u"A"}));
    form.cmdOK.Press();
  });
}

TEST_F(OptionsFormTest, SaysWhyAnAttributeOfAPeculiarNameCannotBeMapped) {
  app->Attributes = {u"A --> B", u"Mass [kg]", u"x [y z]", u"y", u"z"};
  Edit({u"Mass [kg]", u"x [y z]", u"y --> Name", u"z"}, [&](frmOptions& form) {
    form.cmdReloadAttribs.Press();
    ASSERT_EQ(RowsOf(form), Lines({u"A --> B | ", u"Mass [kg] | ", u"x [y z] | ", u"y | Name", u"z | "}));
    for (const std::size_t row : {0u, 1u, 2u}) {
      form.lvMappings.SelectRows({row});
      desktop.OnMessage([&](const Message& message) {
        EXPECT_NE(message.Body.find(form.lvMappings.Rows()[row].Cells[0]), Text::npos);
        return Answer::kOk;
      });
      form.cmdMap.Press();
    }
    form.cmdOK.Press();
  });
  EXPECT_EQ(Stored(), Record({u"Mass [kg]", u"x [y z]", u"y --> Name", u"z"}));
}

TEST_F(OptionsFormTest, CopiesTheRulesOfOnePackageToAnother) {
  Edit({u"A --> Name", u"B [: C] --> Notes"}, [](frmOptions& form) {
    Choose(form, form.mnuMappingsCopy);
    form.cmdCancel.Press();
  });
  Edit({u"A", u"B", u"C --> Name", u"D --> Alias"}, [](frmOptions& form) {
    form.lvMappings.SelectRows({2});
    Choose(form, form.mnuMappingsPaste);
    EXPECT_EQ(RowsOf(form), Lines({u"A | Name", u"B [: C] | Notes", u"D | "}));
    EXPECT_EQ(SelectedOf(form), Lines({u"B [: C]"}));
    EXPECT_EQ(EnabledOf(form), "R");
    form.cmdSaveAndImport.Press();
  });
  EXPECT_EQ(Stored(), Record({u"A --> Name", u"B [: C] --> Notes", u"D"}));
}

TEST_F(OptionsFormTest, PastesWhatIsATemplateAndRefusesTheRest) {
  const Text header = u"Orim Studio Mapping Template\r\n";
  Edit({u"A --> Name", u"B"}, [&](frmOptions& form) {
    desktop.SetClipboardText(u"something else");
    desktop.OnMessage(LoadResText(text::kNoTemplate));
    Choose(form, form.mnuMappingsPaste);

    desktop.SetClipboardText(header + u"B --> Notes\r\nC [:D] --> Alias\r\n");
    desktop.OnMessage([](const Message& message) {
      EXPECT_NE(message.Body.find(u"C [:D] --> Alias"), Text::npos);
      return Answer::kOk;
    });
    Choose(form, form.mnuMappingsPaste);
    EXPECT_EQ(RowsOf(form), Lines({u"A | Name", u"B | "}));

    desktop.SetClipboardText(header + u"Not in the module --> Alias\r\n\r\nB --> Notes\r\nB --> Phase\r\n");
    Choose(form, form.mnuMappingsPaste);
    EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B | Phase", u"Not in the module | Alias"}));

    Choose(form, form.mnuMappingsDefault);
    EXPECT_EQ(SelectedOf(form), Lines({u"A"}));
    EXPECT_EQ(form.lvMappings.Rows().size(), 8u);
    form.cmdCancel.Press();
  });
}

TEST_F(OptionsFormTest, RestrictsTheImportToAView) {
  app->Views = {u"Standard view", u"  Mine ", u"", u"   ", u"mine\r"};
  Edit({u"A"}, [](frmOptions& form) {
    form.cmbViews.Drop();
    EXPECT_EQ(form.cmbViews.Items(), Lines({u"Standard view", u"Mine", u"mine"}));
    EXPECT_EQ(form.cmbViews.Value(), u"Standard view");
    form.cmbViews.Choose(1);
    form.cmdOK.Press();
  });
  EXPECT_EQ(app->Parameters, Lines({u"/Demo/Requirements"}));
  Options options(doors);
  options.Load(package);
  EXPECT_EQ(options.RestrictToView, u"Mine");
  app->Views.clear();
  Reopen([](frmOptions& form) {
    EXPECT_EQ(form.cmbViews.Value(), u"Mine");
    form.cmbViews.Drop();
    EXPECT_EQ(form.cmbViews.Items(), Lines({u"Standard view"}));
    EXPECT_EQ(form.cmbViews.Value(), u"Mine");
    form.cmbViews.Type(u" Standard view ");
    form.cmdOK.Press();
  });
  EXPECT_EQ(Stored(), Record({u"A"}));
}

TEST_F(OptionsFormTest, ScriptErrorIsNoView) {
  Edit({u"A"}, [&](frmOptions& form) {
    app->Module = u"/Moved/Requirements";
    desktop.OnMessage(u"Error: Module '/Demo/Requirements' not found.");
    form.cmbViews.Drop();
    EXPECT_EQ(form.cmbViews.Items(), Lines({u"Standard view"}));
    form.cmdCancel.Press();
  });
}

TEST_F(OptionsFormTest, RefreshesTheAttributesAndKeepsTheMappings) {
  app->Attributes = {u"C", u"A", u"New"};
  Edit({u"A --> Name", u"B --> Notes", u"C"}, [&](frmOptions& form) {
    form.lvMappings.SelectRows({2});
    form.cmdReloadAttribs.Press();
    EXPECT_EQ(RowsOf(form), Lines({u"A | Name", u"C | ", u"New | "}));
    EXPECT_EQ(SelectedOf(form), Lines({u"C"}));
    EXPECT_EQ(EnabledOf(form), "MC");
    EXPECT_FALSE(desktop.WaitCursor());
    form.cmdOK.Press();
  });
  EXPECT_EQ(Stored(), Record({u"A --> Name", u"C", u"New"}));
}

TEST_F(OptionsFormTest, SurvivesDoorsBeingClosed) {
  const Text lost = FormatResText(text::kDoorsFailure);
  struct {
    std::uint32_t number;
    Text message;
  } const cases[] = {
      {0x80010108, lost}, {0x800706BE, lost}, {0x800706BA, lost}, {0x80004005, u"DOORS is gone"}};
  for (const auto& each : cases) {
    Edit({u"A --> Name", u"B"}, [&](frmOptions& form) {
      form.cmdRemove.Press();
      app->Failure = each.number;
      for (int press = 0; press < 2; ++press) {
        desktop.OnMessage([&](const Message& message) {
          EXPECT_EQ(message.Body, each.message);
          EXPECT_FALSE(desktop.WaitCursor());
          return Answer::kOk;
        });
        press == 0 ? form.cmdReloadAttribs.Press() : form.cmbViews.Drop();
      }
      EXPECT_EQ(RowsOf(form), Lines({u"A | ", u"B | "}));
      form.cmdOK.Press();
    });
    EXPECT_EQ(Stored(), Record({u"A", u"B"}));
    app->Failure.reset();
  }
}

TEST_F(OptionsFormTest, WaitsForDoorsUntilTheUserGivesUp) {
  desktop.WindowAt(1).ClassName = u"Other";
  Edit({u"A --> Name"}, [&](frmOptions& form) {
    desktop.OnForm<frmConnectProgress>([](frmConnectProgress& progress) { progress.cmdCancel.Press(); });
    form.cmbViews.Drop();
    desktop.OnForm<frmConnectProgress>([](frmConnectProgress& progress) { progress.cmdCancel.Press(); });
    form.cmdReloadAttribs.Press();
    EXPECT_FALSE(desktop.WaitCursor());
    EXPECT_EQ(RowsOf(form), Lines({u"A | Name"}));
    form.cmdCancel.Press();
  });
}

TEST_F(OptionsFormTest, ALockedPackageCanBeLookedAt) {
  model.Locked = true;
  Edit({u"A", u"B", u"C --> Name"}, [](frmOptions& form) {
    EXPECT_EQ(form.lblPackageName.Caption(), u"Requirements (LOCKED)");
    for (const std::size_t row : {0u, 2u}) {
      form.lvMappings.DoubleClickRow(row);  // opens no wizard
      EXPECT_EQ(EnabledOf(form), "");
    }
    for (const Button* button :
         {&form.cmdOK, &form.cmdMappings, &form.cmdSaveAndImport, &form.cmdReloadAttribs})
      EXPECT_FALSE(button->Enabled()) << ToUtf8(button->Name());
    form.cmdCancel.Press();
  });
  EXPECT_EQ(model.Writes, 0);
}

TEST_F(OptionsFormTest, CancelForgetsEveryChange) {
  Edit({u"A --> Name"}, [](frmOptions& form) {
    form.cmdRemove.Press();
    form.cmbViews.Type(u"Mine");
    form.CloseByUser();
  });
  EXPECT_EQ(Stored(), Record({u"A --> Name"}));
  EXPECT_EQ(model.Writes, 0);
}

TEST_F(OptionsFormTest, EditsTheDefaultsOfAPackageWhoseRecordHasGone) {
  EXPECT_EQ(Reopen([](frmOptions& form) {
              EXPECT_EQ(form.lvMappings.Rows().size(), 5u);
              form.cmdSaveAndImport.Press();
            }),
            frmOptions::kSaveAndImport);
  Options options(doors);
  EXPECT_TRUE(options.Load(package));
  EXPECT_EQ(RulesOf(options).size(), 5u);
}

TEST_F(OptionsFormTest, ManagesAModuleOfTwoHundredAttributes) {
  Lines rules;
  for (int i = 100; i < 300; ++i) rules.push_back(u"Attribute " + ToText(i) + u" --> (Tagged Value)");
  Edit(rules, [](frmOptions& form) {
    std::vector<std::size_t> all(200);
    for (std::size_t row = 0; row < all.size(); ++row) all[row] = row;
    form.lvMappings.SelectRows(all);
    form.cmdRemove.Press();
    EXPECT_EQ(RowsOf(form)[199], u"Attribute 299 | ");
    form.lvMappings.SelectRows({150});
    EXPECT_EQ(EnabledOf(form), "MC");
    form.cmdOK.Press();
  });
  Options options(doors);
  options.Load(package);
  EXPECT_EQ(options.GetUnusedDOORSAttributes().size(), 200u);
}

}  // namespace
}  // namespace kestrune::testing
