#include "options/frmMapWizard.h"
#include "orim/ElementFields.h"
#include "tests/options/PeerLog.h"
#include "tests/options/Rules.h"
#include "tests/support/TestPlatform.h"

namespace kestrune::testing {
namespace {

class MapWizardTest : public ::testing::Test, public TestPlatform {
 protected:
  /// What the wizard answers for an attribute when the user does this.
  Text Run(const Lines& rules, TextView attribute, bool combine, std::function<void(frmMapWizard&)> user) {
    const LinkSettings settings = SettingsOf(rules);
    desktop.OnForm<frmMapWizard>(std::move(user));
    return frmMapWizard(desktop).DoWizard(settings, settings.FindAttribute(attribute), combine);
  }
  static Lines Visible(const frmMapWizard& form) {
    Lines names;
    for (const Control* control :
         {(const Control*)&form.lstExtra, (const Control*)&form.lblSep, (const Control*)&form.txtSep,
          (const Control*)&form.lblPreview, (const Control*)&form.lstTarget})
      if (control->Visible()) names.push_back(control->Name());
    return names;
  }
};

TEST_F(MapWizardTest, MapsOneAttribute) {
  const Text rule = Run({u"A --> Name", u"Status"}, u"Status", false, [](frmMapWizard& form) {
    EXPECT_EQ(form.Caption, u"Configure attribute mapping");
    EXPECT_EQ(
        form.lblPrompt.Caption(),
        u"Select either (Tagged Value) or the name of an Orim Property to which Status should be imported:");
    EXPECT_EQ(Visible(form), Lines({u"lstTarget"}));
    EXPECT_EQ(form.lstTarget.Items(),
              Lines({u"(Tagged Value)", u"Alias", u"Status", u"Difficulty", u"Priority", u"Author",
                     u"KeyWords", u"Phase", u"Version", u"Notes"}));
    EXPECT_EQ(form.lstTarget.ListIndex(), 0);
    EXPECT_EQ(form.cmdNext.Caption(), u"&Finish");
    EXPECT_FALSE(form.cmdBack.Enabled());
    EXPECT_EQ(form.HelpContextID, 6040);
    form.lstTarget.ClickItem(4);
    form.cmdNext.Press();
  });
  EXPECT_EQ(rule, u"Status --> Priority");
}

TEST_F(MapWizardTest, CombinesTwoAttributesPageByPage) {
  PeerLog log;
  const auto user = [&](frmMapWizard& form) {
    form.Open(&log);
    EXPECT_EQ(Visible(form), Lines({u"lstExtra"}));
    EXPECT_EQ(form.lstExtra.Items(), Lines({u"Object Heading", u"Other"}));
    EXPECT_EQ(form.lstExtra.SelectedText(), u"Object Heading");
    EXPECT_FALSE(form.cmdBack.Enabled());
    EXPECT_EQ(form.cmdNext.Caption(), u"&Next >");
    form.cmdHelp.Press();
    form.lstExtra.DoubleClickItem(1);
    EXPECT_EQ(Visible(form), Lines({u"lblSep", u"txtSep", u"lblPreview"}));
    form.txtSep.Type(u" - ");
    form.cmdNext.Press();
    EXPECT_EQ(Visible(form), Lines({u"lstTarget"}));
    EXPECT_TRUE(form.cmdBack.Enabled());
    EXPECT_EQ(form.lstTarget.Items().size(), 10u);
    form.cmdNext.Press();
  };
  const Lines rules = {u"Object Heading", u"Object Number", u"Taken --> Notes", u"Other"};
  EXPECT_EQ(Run(rules, u"Object Number", true, user), u"Object Number [ -  Other] --> (Tagged Value)");
  EXPECT_EQ(desktop.HelpShown(), std::vector<int>({6140}));
  EXPECT_EQ(log.focused, Lines({u"lstExtra", u"txtSep", u"lstTarget"}))
      << "each page begins with its control";
}

TEST_F(MapWizardTest, ShowsWhatASeparatorMakesOfBothAttributes) {
  struct {
    TextView first, second, separator, preview;
  } const cases[] = {
      {u"Object Number", u"Object Heading", u":", u"For example: 2.1: Scope"},
      {u"Mood", u"Object Heading", u"\\n", u"For example: Mood\\n Scope"},
  };
  for (const auto& each : cases) {
    Run({Text(each.first), Text(each.second)}, each.first, true, [&](frmMapWizard& form) {
      form.cmdNext.Press();
      form.txtSep.Type(Text(each.separator));
      EXPECT_EQ(form.lblPreview.Caption(), each.preview);
      form.cmdCancel.Press();
    });
  }
}

TEST_F(MapWizardTest, GoesOnFromAPageWithAllThatWasChosen) {
  const LinkSettings settings = SettingsOf({u"A", u"B", u"C"});
  frmMapWizard wizard(desktop);
  desktop.OnForm<frmMapWizard>([](frmMapWizard& form) {
    form.lstExtra.ClickItem(1);
    form.cmdNext.Press();
    form.txtSep.Type(u"- ");
    form.cmdNext.Press();
    form.lstTarget.ClickItem(3);
    form.cmdNext.Press();
  });
  EXPECT_EQ(wizard.DoWizard(settings, 5, true), u"A [-  C] --> Status");
  EXPECT_EQ(wizard.Rule(), (MappingRule{u"A", u"C", u"- ", u"Status"}));
  desktop.OnForm<frmMapWizard>([](frmMapWizard& form) {
    EXPECT_EQ(form.txtSep.Value(), u"- ");
    form.txtSep.Type(u"-");
    form.cmdNext.Press();
    form.cmdNext.Press();
  });
  EXPECT_EQ(wizard.AskFrom(frmMapWizard::kSeparator), u"A [- C] --> Status");
}

TEST_F(MapWizardTest, NeverOffersATaggedValueForTheIdentifier) {
  const Lines rules = {u"A", u"Object Identifier"};
  Run(rules, u"Object Identifier", false, [](frmMapWizard& form) {
    EXPECT_EQ(form.lblPrompt.Caption(),
              u"Object Identifier is always imported as (Tagged Value).  Additionally, you may import this "
              u"attribute as "
              u"one of the following Orim Properties:");
    EXPECT_EQ(form.lstTarget.Items().front(), u"Name");
    form.CloseByUser();
  });
  Run(rules, u"Object Identifier", true, [](frmMapWizard& form) {
    form.cmdNext.Press();
    form.cmdNext.Press();
    EXPECT_NE(form.lblPrompt.Caption().find(u"import the combined attributes as"), Text::npos);
    form.cmdCancel.Press();
  });
}

TEST_F(MapWizardTest, CannotFinishWithoutATarget) {
  Lines rules = {u"Object Identifier"};
  for (const orim::ElementField& field : orim::kElementFields)
    rules.push_back(u"For " + Text(field.Name) + u" --> " + Text(field.Name));
  const Text rule = Run(rules, u"Object Identifier", false, [](frmMapWizard& form) {
    EXPECT_TRUE(form.lstTarget.Items().empty());
    EXPECT_FALSE(form.cmdNext.Enabled());
    form.cmdCancel.Press();
  });
  EXPECT_EQ(rule, u"");
}

}  // namespace
}  // namespace kestrune::testing
